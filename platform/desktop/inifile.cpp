#include "platform/desktop/inifile.h"

#include <algorithm>
#include <optional>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringList>

#include "platform/files/privatefile.h"
#include "platform/files/writeall.h"

namespace {

constexpr qsizetype LongestValue = 500;
constexpr QChar CarriageReturn = u'\r';

enum class Encoding { Utf8, Utf8WithMark, Utf16Little, Utf16Big, Latin1 };

const QByteArray Utf8Mark("\xEF\xBB\xBF");
const QByteArray LittleMark("\xFF\xFE");
const QByteArray BigMark("\xFE\xFF");

// Each line keeps its carriage return, so that untouched lines are written as they were read.
struct IniText {
    Encoding encoding = Encoding::Utf8;
    QStringList lines;
};

struct IniEntry {
    QString key;
    QString value;
    qsizetype valueStart = 0;  // The place in its line.
};

QString decoded(const QByteArray& bytes, Encoding& encoding) {
    if (bytes.startsWith(Utf8Mark)) {
        encoding = Encoding::Utf8WithMark;
        return QString::fromUtf8(bytes.mid(Utf8Mark.size()));
    }
    if (bytes.startsWith(LittleMark) || bytes.startsWith(BigMark)) {
        encoding = bytes.startsWith(LittleMark) ? Encoding::Utf16Little : Encoding::Utf16Big;
        QStringDecoder decoder(encoding == Encoding::Utf16Little ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
        return decoder(bytes.mid(LittleMark.size()));
    }
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(bytes);
    encoding = utf8.hasError() ? Encoding::Latin1 : Encoding::Utf8;
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

bool fitsLatin1(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
}

QByteArray encoded(const QString& text, Encoding encoding) {
    switch (encoding) {
        case Encoding::Utf8:
            return text.toUtf8();
        case Encoding::Utf8WithMark:
            return Utf8Mark + text.toUtf8();
        case Encoding::Utf16Little:
            return LittleMark + QByteArray(QStringEncoder(QStringEncoder::Utf16LE)(text));
        case Encoding::Utf16Big:
            return BigMark + QByteArray(QStringEncoder(QStringEncoder::Utf16BE)(text));
        case Encoding::Latin1:
            return fitsLatin1(text) ? text.toLatin1() : Utf8Mark + text.toUtf8();
    }
    return {};
}

// Returns nothing when the file exists but cannot be read, because writing must not replace it then.
std::optional<IniText> loaded(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return IniText{};
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    IniText ini;
    const QString text = decoded(file.readAll(), ini.encoding);
    if (!text.isEmpty())
        ini.lines = text.split(u'\n');
    return ini;
}

// The file may hold a password that is only scrambled, so it is written for its owner alone.
bool stored(const QString& path, const IniText& ini) {
    const files::OwnerOnly made;
    const bool isNew = !QFile::exists(path);
    files::KeepPrivate(path);
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (isNew)
        file.setPermissions(files::PermissionsIn(QFileInfo(path).absolutePath()));
    return files::WriteAll(file, encoded(ini.lines.join(u'\n'), ini.encoding)) && file.commit();
}

// Returns the name of the section that a line opens, or nothing for any other line.
std::optional<QString> sectionOpenedBy(const QString& line) {
    const QString trimmed = line.trimmed();
    const qsizetype end = trimmed.indexOf(u']');
    if (!trimmed.startsWith(u'[') || end < 0)
        return std::nullopt;
    return trimmed.mid(1, end - 1).trimmed();
}

bool isQuoted(const QString& value) {
    return value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
}

std::optional<IniEntry> entryIn(const QString& line) {
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0 || line.trimmed().startsWith(u';'))
        return std::nullopt;
    IniEntry entry{line.left(equals).trimmed(), line.mid(equals + 1).trimmed(), equals + 1};
    while (entry.valueStart < line.size() && (line[entry.valueStart] == u' ' || line[entry.valueStart] == u'\t'))
        ++entry.valueStart;
    if (isQuoted(entry.value))
        entry.value = entry.value.mid(1, entry.value.size() - 2);
    return entry;
}

struct Place {
    qsizetype line = -1;          // The line of the key; -1 when there is none.
    qsizetype endOfSection = -1;  // The line after the section's last filled one; -1 without the section.
    QString value;
};

Place find(const QStringList& lines, const QString& section, const QString& key) {
    Place place;
    bool inside = false;
    bool sectionSeen = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (const auto opened = sectionOpenedBy(lines[i])) {
            inside = opened->compare(section, Qt::CaseInsensitive) == 0;
            if (inside && !sectionSeen)
                place.endOfSection = i + 1;
            sectionSeen = sectionSeen || inside;
            continue;
        }
        if (!inside || lines[i].trimmed().isEmpty())
            continue;
        if (const auto entry = entryIn(lines[i]); entry && entry->key.compare(key, Qt::CaseInsensitive) == 0) {
            place.line = i;
            place.value = entry->value;
            return place;
        }
        place.endOfSection = i + 1;
    }
    return place;
}

// Returns the value for the file: on one line, and quoted where reading would strip blanks or quotes.
QString written(const QString& value) {
    QString line = value;
    line.remove(QChar(u'\0'));
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(u'\n', u' ').replace(u'\r', u' ');
    return line.trimmed() != line || isQuoted(line) ? u'"' + line + u'"' : line;
}

void appendSection(IniText& ini, const QString& section, const QString& entry, const QString& lineEnd) {
    if (ini.lines.isEmpty())
        ini.lines << QString();
    const bool lastLineIsOpen = !ini.lines.last().isEmpty();
    if (lastLineIsOpen) {
        ini.lines.last() += lineEnd;
        ini.lines << QString();
    }
    ini.lines.last() = u'[' + section + u']' + lineEnd;
    ini.lines << entry + lineEnd << QString();
}

}  // namespace

QString ReadIniValue(const QString& file, const QString& section, const QString& key) {
    const auto ini = loaded(file);
    return ini ? find(ini->lines, section, key).value.left(LongestValue) : QString();
}

bool WriteIniValue(const QString& file, const QString& section, const QString& key, const QString& value) {
    auto ini = loaded(file);
    if (!ini)
        return false;
    const QString lineEnd =
        !ini->lines.isEmpty() && ini->lines.first().endsWith(CarriageReturn) ? QString(CarriageReturn) : QString();
    const QString entry = key + u'=' + written(value);
    const Place place = find(ini->lines, section, key);
    if (place.line >= 0) {
        QString& line = ini->lines[place.line];
        const QString ownEnd = line.endsWith(CarriageReturn) ? QString(CarriageReturn) : QString();
        line = line.left(entryIn(line)->valueStart) + written(value) + ownEnd;
    } else if (place.endOfSection >= 0) {
        if (place.endOfSection == ini->lines.size()) {
            ini->lines.last() += lineEnd;
            ini->lines << QString();
        }
        ini->lines.insert(place.endOfSection, entry + lineEnd);
    } else {
        appendSection(*ini, section, entry, lineEnd);
    }
    return stored(file, *ini);
}
