#include "shell/schedulesheet.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <QLocale>

#include "platform/calendar/page.h"
#include "session/preferences.h"
#include "session/session.h"

namespace {

constexpr double SmallestPoints = 4;
constexpr double LargestPoints = 72;
constexpr double UsualPoints = 8.25;
constexpr int UsualColumns = 5;
constexpr int MostColumns = 9;

bool isOn(const QString& value) {
    return value.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0 || value == QLatin1String("1") ||
           value == QLatin1String("-1");
}

/// The font whose options begin with this word, "Title" or "Time".
QFont fontOf(const QString& part) {
    const auto option = [&part](const char* of) {
        return PrintOption((part + QLatin1String(of)).toLatin1().constData());
    };
    const QString name = option("Font");
    QFont font(name.isEmpty() ? QStringLiteral("Arial") : name);
    const double points = option("FontSize").toDouble();
    font.setPointSizeF(points < SmallestPoints || points > LargestPoints ? UsualPoints : points);
    font.setBold(isOn(option("FontBold")));
    font.setItalic(isOn(option("FontItalic")));
    return font;
}

Qt::Alignment titleAlignment() {
    static constexpr Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    const int index = PrintOption("TitleAlign").toInt();
    return alignments[index < 0 || index > 2 ? 0 : index];
}

int timeUnits(int shown) {
    static constexpr int units[] = {5, 10, 15, 30};
    bool isNumber = false;
    const int index = PrintOption("TimeUnits").toInt(&isNumber);
    return isNumber && index >= 0 && index < static_cast<int>(std::size(units)) ? units[index] : shown;
}

void addTitles(VSPrinter& vp, const ScheduleSheet& sheet, const QFont& font) {
    vp.SetFontName(font.family());
    vp.SetFontSize(font.pointSizeF());
    vp.SetFontBold(font.bold());
    vp.SetFontItalic(font.italic());
    vp.SetTextAlign(titleAlignment());
    for (const QString& line : {sheet.title, sheet.subtitle})
        if (!line.isEmpty())
            vp.AddParagraph(line);
}

}  // namespace

QString PrintOption(const char* key) {
    return GetPreference(Session().SchedulerIni, QString::fromLatin1(key), QStringLiteral("PrintLayout"),
                         QString::fromLatin1(AllUsers));
}

int AllViewColumns() {
    const int columns = PrintOption("AllViewCols").toInt();
    return columns < 1 || columns > MostColumns ? UsualColumns : columns;
}

QString SheetDate(QDate date) {
    return QLocale::c().toString(date, QStringLiteral("dddd  MMMM d, yyyy"));
}

VSPrinter PrintedSheet(const ScheduleSheet& sheet) {
    VSPrinter vp;
    vp.SetTitle(sheet.title);
    vp.SetFooter(sheet.footer + QStringLiteral("||Page %d"));
    const QFont title = fontOf(QStringLiteral("Title"));
    const QFont time = fontOf(QStringLiteral("Time"));
    QFont text(time.family());
    text.setPointSizeF(UsualPoints);
    CalendarStyle style = PrintStyle(text, time);
    if (!isOn(PrintOption("Taskbar")))
        style.edgeWidth = 0;
    CalendarContent content = sheet.content;
    content.timeInterval = timeUnits(content.timeInterval);
    // All pages paint from one copy, which nothing changes while the preview stands.
    const auto shared = std::make_shared<const CalendarContent>(std::move(content));
    const int columns = static_cast<int>(shared->columns.size());
    const int perPage = std::max(sheet.columnsPerPage, 1);
    for (int first = 1; first <= columns; first += perPage) {
        if (first > 1)
            vp.NewPage();
        addTitles(vp, sheet, title);
        vp.AddFigure([shared, style, first, perPage](QPainter& painter, const QRectF& room) {
            PaintPage(painter, room, *shared, first, perPage, style);
        });
    }
    if (columns == 0)
        addTitles(vp, sheet, title);
    return vp;
}
