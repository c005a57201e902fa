#include "platform/files/privatefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace files {

namespace {

constexpr mode_t Owner = S_IRUSR | S_IWUSR;
constexpr mode_t Others = S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

QStringList& shared() {
    static QStringList folders;
    return folders;
}

mode_t modeIn(const QString& folder) {
    struct stat facts {};
    if (stat(QFile::encodeName(folder).constData(), &facts) != 0)
        return Owner;
    const bool isShared = (facts.st_mode & S_IWGRP) != 0 || shared().contains(QDir(folder).canonicalPath());
    return Owner | (isShared ? facts.st_mode & Others : 0);
}

mode_t modeOf(const QString& file) {
    return modeIn(QFileInfo(file).absolutePath());
}

}  // namespace

void Share(const QString& folder) {
    if (const QString path = QDir(folder).canonicalPath(); !path.isEmpty())
        shared() << path;
}

void ShareNothing() {
    shared().clear();
}

bool MakePrivate(const QString& file) {
    const int made = open(QFile::encodeName(file).constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, Owner);
    if (made < 0) {
        const bool isThere = errno == EEXIST;
        KeepPrivate(file);
        return isThere;
    }
    fchmod(made, modeOf(file));
    close(made);
    return true;
}

void KeepPrivate(const QString& file) {
    const QByteArray name = QFile::encodeName(file);
    struct stat facts {};
    if (stat(name.constData(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return;
    const mode_t mode = facts.st_mode & 0777;
    const mode_t kept = mode & (modeOf(file) | S_IXUSR);
    if (kept != mode)
        chmod(name.constData(), kept);
}

bool MakePrivateFolder(const QString& folder) {
    const QString path = QDir::cleanPath(QDir::current().absoluteFilePath(folder));
    if (QFileInfo(path).isDir())
        return true;
    return QDir().mkpath(QFileInfo(path).absolutePath()) && mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0;
}

bool MakeFolderIn(const QString& above, const QString& name) {
    const QString folder = above + QLatin1Char('/') + name;
    if (QFileInfo(folder).isDir())
        return true;
    if (!MakePrivateFolder(folder))
        return false;
    struct stat facts {};
    const bool isShared = (modeIn(above) & Others) != 0 && stat(QFile::encodeName(above).constData(), &facts) == 0;
    return !isShared || chmod(QFile::encodeName(folder).constData(), facts.st_mode & 07777) == 0;
}

void KeepPrivateFolder(const QString& folder) {
    const QByteArray name = QFile::encodeName(folder);
    struct stat facts {};
    if (stat(name.constData(), &facts) != 0 || !S_ISDIR(facts.st_mode) || facts.st_uid != geteuid() ||
        (facts.st_mode & (S_IWGRP | S_IWOTH)) != 0 || shared().contains(QDir(folder).canonicalPath()))
        return;
    if ((facts.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        chmod(name.constData(), facts.st_mode & S_IRWXU);
}

QFileDevice::Permissions PermissionsIn(const QString& folder) {
    const mode_t mode = modeIn(folder);
    QFileDevice::Permissions permissions =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser | QFileDevice::WriteUser;
    permissions.setFlag(QFileDevice::ReadGroup, (mode & S_IRGRP) != 0);
    permissions.setFlag(QFileDevice::WriteGroup, (mode & S_IWGRP) != 0);
    permissions.setFlag(QFileDevice::ReadOther, (mode & S_IROTH) != 0);
    permissions.setFlag(QFileDevice::WriteOther, (mode & S_IWOTH) != 0);
    return permissions;
}

OwnerOnly::OwnerOnly() : before_(umask(S_IRWXG | S_IRWXO)) {}

OwnerOnly::~OwnerOnly() {
    umask(before_);
}

}  // namespace files
