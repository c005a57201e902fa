#include "shell/printoptions.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/database/readtogether.h"
#include "platform/database/transaction.h"
#include "platform/printing/paperfont.h"
#include "session/preferences.h"
#include "session/session.h"

namespace {

const QString Category = QStringLiteral("PrintLayout");
constexpr double UsualPoints = 8.25;

constexpr const char* Keys[] = {"TitleFont",     "TitleFontSize", "TitleFontBold",  "TitleFontItalic", "TimeFont",
                                "TimeFontSize",  "TimeFontBold",  "TimeFontItalic", "TitleAlign",      "TimeUnits",
                                "PrintWeekends", "AllViewCols",   "Taskbar",        "TimeStats"};

QStringList statements(const QString& fallbackUser) {
    QStringList read;
    for (const char* key : Keys)
        read << PreferenceStatement(QString::fromLatin1(key), Category, fallbackUser);
    return read;
}

QString option(const QString& key) {
    return GetPreference(Session().SchedulerIni, key, Category, QString::fromLatin1(AllUsers));
}

bool isOn(const QString& value) {
    return value.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0 || value == QLatin1String("1") ||
           value == QLatin1String("-1");
}

/// The font whose options begin with this word, "Title" or "Time".
QFont fontOf(const QString& part) {
    const double points = option(part + QStringLiteral("FontSize")).toDouble();
    const bool isSize = points >= PrintOptions::LeastPoints && points <= PrintOptions::MostPoints;
    const QString name = option(part + QStringLiteral("Font"));
    QFont font = printing::PaperFont(name.isEmpty() ? QStringLiteral("Arial") : name, isSize ? points : UsualPoints);
    font.setBold(isOn(option(part + QStringLiteral("FontBold"))));
    font.setItalic(isOn(option(part + QStringLiteral("FontItalic"))));
    return font;
}

std::optional<int> timeUnit(const QString& value) {
    bool isNumber = false;
    const int index = value.toInt(&isNumber);
    if (!isNumber || index < 0 || index >= std::ssize(PrintOptions::TimeUnits))
        return std::nullopt;
    return PrintOptions::TimeUnits.at(static_cast<std::size_t>(index));
}

using Stored = std::pair<QString, QString>;

void addFont(std::vector<Stored>& values, const QString& part, const QFont& font) {
    const auto truth = [](bool value) { return value ? QStringLiteral("True") : QStringLiteral("False"); };
    values.emplace_back(part + QStringLiteral("Font"), font.families().value(0));
    values.emplace_back(part + QStringLiteral("FontSize"), QString::number(font.pointSizeF()));
    values.emplace_back(part + QStringLiteral("FontBold"), truth(font.bold()));
    values.emplace_back(part + QStringLiteral("FontItalic"), truth(font.italic()));
}

/// Returns the keys that the user chooses, with their values as they are stored.
std::vector<Stored> storedForm(const PrintOptions& options) {
    const auto number = [](bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); };
    const int unit = PlaceOfTimeUnit(options.timeUnit);
    std::vector<Stored> values;
    addFont(values, QStringLiteral("Title"), options.titleFont);
    addFont(values, QStringLiteral("Time"), options.timeFont);
    values.emplace_back(QStringLiteral("TitleAlign"), QString::number(static_cast<int>(options.titlePlace)));
    values.emplace_back(QStringLiteral("TimeUnits"), unit < 0 ? QString() : QString::number(unit));
    values.emplace_back(QStringLiteral("PrintWeekends"), number(options.weekends));
    values.emplace_back(QStringLiteral("AllViewCols"), QString::number(options.columnsPerPage));
    values.emplace_back(QStringLiteral("Taskbar"), number(options.taskBar));
    return values;
}

std::vector<Stored> toBeStored(const PrintOptions& read, const PrintOptions& wanted) {
    const db::ReadTogether together(Session().Connection, statements({}));
    const std::vector<Stored> before = storedForm(read);
    const std::vector<Stored> after = storedForm(wanted);
    std::vector<Stored> changed;
    for (std::size_t i = 0; i < after.size(); ++i)
        if (after[i] != before[i] || GetPreference({}, after[i].first, Category).isEmpty())
            changed.push_back(after[i]);
    return changed;
}

void store(const Stored& stored) {
    // The store sends its values as they are: a quote is doubled for the statement, and stored as one.
    const QString quoted = QString(stored.second).replace(u'\'', QStringLiteral("''"));
    if (!SetPreference(quoted, stored.first, Category))
        throw db::DatabaseError(0, QStringLiteral("%1 could not be stored.").arg(stored.first));
}

}  // namespace

Qt::Alignment AlignmentOf(TitlePlace place) {
    if (place == TitlePlace::Right)
        return Qt::AlignRight;
    return place == TitlePlace::Center ? Qt::AlignHCenter : Qt::AlignLeft;
}

int PlaceOfTimeUnit(std::optional<int> minutes) {
    const auto& units = PrintOptions::TimeUnits;
    const auto found = std::ranges::find(units, minutes.value_or(0));
    return found == units.end() ? -1 : static_cast<int>(found - units.begin());
}

PrintOptions ReadPrintOptions() {
    const db::ReadTogether together(Session().Connection, statements(QString::fromLatin1(AllUsers)));
    PrintOptions options;
    options.titleFont = fontOf(QStringLiteral("Title"));
    options.timeFont = fontOf(QStringLiteral("Time"));
    const int place = option(QStringLiteral("TitleAlign")).toInt();
    if (place >= 0 && place <= static_cast<int>(TitlePlace::Center))
        options.titlePlace = static_cast<TitlePlace>(place);
    options.timeUnit = timeUnit(option(QStringLiteral("TimeUnits")));
    options.weekends = option(QStringLiteral("PrintWeekends")) == QLatin1String("1");
    const int columns = option(QStringLiteral("AllViewCols")).toInt();
    if (columns >= PrintOptions::LeastColumns && columns <= PrintOptions::MostColumns)
        options.columnsPerPage = columns;
    options.taskBar = isOn(option(QStringLiteral("Taskbar")));
    options.timeStats = isOn(option(QStringLiteral("TimeStats")));
    return options;
}

bool StorePrintOptions(const PrintOptions& read, const PrintOptions& wanted) {
    const std::vector<Stored> changed = toBeStored(read, wanted);
    return db::Ignoring([&] {
        db::InTransaction(Session().Connection, [&] {
            for (const Stored& stored : changed)
                store(stored);
        });
    });
}
