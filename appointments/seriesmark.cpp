#include "appointments/seriesmark.h"

#include <optional>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QUuid>

#include "platform/database/connectiontext.h"
#include "platform/desktop/userstore.h"
#include "platform/files/privatefile.h"
#include "platform/files/writeall.h"
#include "session/session.h"

namespace {

const QString FilePattern = QStringLiteral("series-*.json");
const QString Date = QStringLiteral("date");
const QString Dates = QStringLiteral("dates");
const QString Keys = QStringLiteral("keys");
const QString Steps = QStringLiteral("steps");
const QString Key = QStringLiteral("key");
const QString Before = QStringLiteral("before");
const QString After = QStringLiteral("after");
const QString Start = QStringLiteral("start");
const QString End = QStringLiteral("end");
const QString Provider = QStringLiteral("provider");
const QString Code = QStringLiteral("code");
const QString Room = QStringLiteral("room");

QString folder() {
    return QFileInfo(UserStoreFile()).absolutePath();
}

// Which practice and user the mark belongs to, without telling either.
QString owner() {
    const db::ConnectionFields fields = db::ParseConnectionText(Session().ConnectionString);
    const QString named =
        QStringList{fields.value(QStringLiteral("data source")), fields.value(QStringLiteral("initial catalog")),
                    fields.value(QStringLiteral("database")), Session().UID}
            .join(QLatin1Char('\n'))
            .toLower();
    return QString::fromLatin1(QCryptographicHash::hash(named.toUtf8(), QCryptographicHash::Sha256).toHex());
}

QJsonObject written(const SeriesPlace& place) {
    return {{Date, place.date.toString(Qt::ISODate)},
            {Start, place.start},
            {End, place.end},
            {Provider, place.provider},
            {Code, place.code},
            {Room, place.room}};
}

SeriesPlace placeFrom(const QJsonObject& object) {
    return {QDate::fromString(object[Date].toString(), Qt::ISODate),
            object[Start].toInt(),
            object[End].toInt(),
            object[Provider].toString(),
            object[Code].toInt(),
            object[Room].toInt()};
}

QJsonObject written(const SeriesStep& step) {
    QJsonObject object{{Key, step.key}, {Before, written(step.before)}};
    if (step.after)
        object[After] = written(*step.after);
    return object;
}

SeriesStep stepFrom(const QJsonObject& object) {
    SeriesStep step{object[Key].toInt(), placeFrom(object[Before].toObject()), {}};
    if (object.contains(After))
        step.after = placeFrom(object[After].toObject());
    return step;
}

QJsonObject written(const SeriesWork& work) {
    QJsonArray dates;
    for (const QDate date : work.dates)
        dates << date.toString(Qt::ISODate);
    QJsonArray keys;
    for (const int key : work.keys)
        keys << key;
    QJsonArray steps;
    for (const SeriesStep& step : work.steps)
        steps << written(step);
    return {{QStringLiteral("owner"), owner()},
            {QStringLiteral("kind"), static_cast<int>(work.kind)},
            {Date, work.date.toString(Qt::ISODate)},
            {Start, work.start},
            {End, work.end},
            {QStringLiteral("source"), work.source},
            {QStringLiteral("reference"), work.reference},
            {QStringLiteral("lastKey"), static_cast<double>(work.lastKey)},
            {Provider, work.provider},
            {QStringLiteral("schedule"), work.schedule},
            {Room, work.room},
            {QStringLiteral("company"), static_cast<int>(work.company)},
            {Dates, dates},
            {Keys, keys},
            {Steps, steps}};
}

std::optional<SeriesWork> readFrom(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    if (object[QStringLiteral("owner")].toString() != owner())
        return std::nullopt;
    SeriesWork work;
    work.kind = static_cast<SeriesWork::Kind>(object[QStringLiteral("kind")].toInt());
    work.date = QDate::fromString(object[Date].toString(), Qt::ISODate);
    work.start = object[Start].toInt();
    work.end = object[End].toInt();
    work.source = object[QStringLiteral("source")].toInt();
    work.reference = object[QStringLiteral("reference")].toInt();
    work.lastKey = object[QStringLiteral("lastKey")].toInteger();
    work.provider = object[Provider].toString();
    work.schedule = object[QStringLiteral("schedule")].toString();
    work.room = object[Room].toInt();
    work.company = static_cast<SeriesWork::Company>(object[QStringLiteral("company")].toInt());
    const QJsonArray dates = object[Dates].toArray();
    for (const auto& date : dates)
        work.dates.push_back(QDate::fromString(date.toString(), Qt::ISODate));
    const QJsonArray keys = object[Keys].toArray();
    for (const auto& key : keys)
        work.keys.push_back(key.toInt());
    const QJsonArray steps = object[Steps].toArray();
    for (const auto& step : steps)
        work.steps.push_back(stepFrom(step.toObject()));
    return work;
}

}  // namespace

SeriesMark::SeriesMark(const QString& file, SeriesWork work)
    : file_(file), work_(std::move(work)), lock_(std::make_unique<QLockFile>(file + QStringLiteral(".lock"))) {
    lock_->setStaleLockTime(0);  // Only the end of its program frees it.
}

std::shared_ptr<SeriesMark> SeriesMark::Begin(const SeriesWork& work) {
    files::MakePrivateFolder(folder());
    const QString name = QStringLiteral("series-%1.json").arg(QUuid::createUuid().toString(QUuid::WithoutBraces));
    std::shared_ptr<SeriesMark> mark(new SeriesMark(QDir(folder()).filePath(name), work));
    QSaveFile file(mark->file_);
    if (!mark->lock_->tryLock(0) || !file.open(QIODevice::WriteOnly))
        return mark;
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (files::WriteAll(file, QJsonDocument(written(work)).toJson()))
        file.commit();
    return mark;
}

std::vector<std::shared_ptr<SeriesMark>> SeriesMark::Left() {
    std::vector<std::shared_ptr<SeriesMark>> marks;
    const QDir home(folder());
    for (const QString& name : home.entryList({FilePattern}, QDir::Files, QDir::Time | QDir::Reversed)) {
        std::optional<SeriesWork> work = readFrom(home.filePath(name));
        if (!work)
            continue;
        std::shared_ptr<SeriesMark> mark(new SeriesMark(home.filePath(name), std::move(*work)));
        if (mark->lock_->tryLock(0))
            marks.push_back(std::move(mark));
    }
    return marks;
}

void SeriesMark::Remove() {
    QFile::remove(file_);
    lock_->unlock();
}
