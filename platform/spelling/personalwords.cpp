#include "platform/spelling/personalwords.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include "platform/files/privatefile.h"

namespace {

constexpr qint64 LongestLine = 200;
constexpr qsizetype MostWords = 100000;

QString textOf(const QByteArray& line) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(line);
    // A list of an earlier program may be in the old code page.
    return utf8.hasError() ? QString::fromLatin1(line) : text;
}

bool isWord(const QString& text) {
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() && !c.isSpace() && c != u'/'; });
}

/// Whether the file's last line is not ended.
bool endsInAWord(int file) {
    struct stat facts {};
    char last = '\n';
    return fstat(file, &facts) == 0 && facts.st_size > 0 && pread(file, &last, 1, facts.st_size - 1) == 1 &&
           last != '\n';
}

}  // namespace

QStringList ReadPersonalWords(const QString& file) {
    QStringList words;
    QFile list(file);
    if (!list.open(QIODevice::ReadOnly))
        return words;
    while (!list.atEnd() && words.size() < MostWords) {
        const QByteArray line = list.readLine(LongestLine);
        if (const QString word = textOf(line.trimmed()); isWord(word))
            words << word;
    }
    return words;
}

bool AppendPersonalWord(const QString& file, const QString& word) {
    if (!files::MakePrivateFolder(QFileInfo(file).absolutePath()) || !files::MakePrivate(file))
        return false;
    const int list = open(QFile::encodeName(file).constData(), O_RDWR | O_APPEND | O_CLOEXEC);
    if (list < 0)
        return false;
    // The lock keeps two desks from ending the same last line, and the one write keeps their words apart.
    flock(list, LOCK_EX);
    const QByteArray line = (endsInAWord(list) ? "\n" : "") + word.toUtf8() + '\n';
    const bool isWritten = write(list, line.constData(), static_cast<size_t>(line.size())) == line.size();
    return close(list) == 0 && isWritten;
}
