#include "shell/schedulesheet.h"

#include <algorithm>
#include <memory>
#include <QLocale>

#include "platform/calendar/page.h"
#include "platform/calendar/timescale.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/printing/frmpreview.h"
#include "platform/printing/paperfont.h"
#include "platform/printing/printpreview.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

constexpr double EntryPoints = 8.25;
constexpr int BelowTitles = 80;  ///< The space between title and schedule, in twips.
/// The entries of a full month are printed in the largest of these sizes in which all of them find room.
constexpr double MonthPoints[] = {8.25, 7.5, 6.75, 6};

CalendarStyle styleOf(const PrintOptions& options, double points) {
    CalendarStyle style = PrintStyle(printing::PaperFont(QStringLiteral("Arial"), points), options.timeFont);
    if (!options.taskBar)
        style.edgeWidth = 0;
    return style;
}

/// Returns the time of printing, so that an old sheet is not taken for the present state.
QString printedAt() {
    const QDateTime now = Now();
    const int minute = now.time().hour() * 60 + now.time().minute();
    return QStringLiteral("Printed %1 %2").arg(ShortDateText(now.date()), ClockText(minute, Session().MilitaryTime));
}

VSPrinter framed(const SheetFrame& frame) {
    VSPrinter vp;
    vp.SetTitle(frame.title);
    // A bar in a name would begin another part of the foot.
    const QString left = QString(frame.footer).replace(QLatin1Char('|'), QLatin1Char('/'));
    vp.SetFooter(QStringLiteral("%1|%2|Page %d").arg(left, printedAt()));
    return vp;
}

void addTitles(VSPrinter& vp, const SheetFrame& frame, const PrintOptions& options) {
    const QFont& font = options.titleFont;
    vp.SetFontName(font.families().value(0));
    vp.SetFontSize(font.pointSizeF());
    vp.SetFontBold(font.bold());
    vp.SetFontItalic(font.italic());
    vp.SetTextAlign(AlignmentOf(options.titlePlace));
    for (const QString& line : {frame.title, frame.subtitle})
        if (!line.isEmpty())
            vp.AddParagraph(line);
    vp.AddSpace(BelowTitles);
}

}  // namespace

QString SheetDate(QDate date) {
    return QLocale::c().toString(date, QStringLiteral("dddd  MMMM d, yyyy"));
}

VSPrinter PrintedSheet(const ScheduleSheet& sheet, const PrintOptions& options) {
    VSPrinter vp = framed(sheet);
    if (sheet.content.dayColumns && sheet.content.columns.size() > 1)
        vp.SetOrientation(QPageLayout::Landscape);
    const CalendarStyle style = styleOf(options, EntryPoints);
    CalendarContent content = sheet.content;
    content.timeInterval = options.timeUnit.value_or(content.timeInterval);
    // All pages paint from one copy, which nothing changes while the preview stands.
    const auto shared = std::make_shared<const CalendarContent>(std::move(content));
    const PageNotes notes{sheet.owner, true};
    const int columns = static_cast<int>(shared->columns.size());
    const int perPage = std::max(sheet.columnsPerPage, 1);
    for (int first = 1; first <= columns; first += perPage) {
        if (first > 1)
            vp.NewPage();
        addTitles(vp, sheet, options);
        vp.AddFigure([shared, style, first, perPage, notes](QPainter& painter, const QRectF& room) {
            PaintPage(painter, room, *shared, first, perPage, style, notes);
        });
    }
    if (columns == 0)
        addTitles(vp, sheet, options);
    return vp;
}

VSPrinter PrintedSheet(const MonthSheet& sheet, const PrintOptions& options) {
    VSPrinter vp = framed(sheet);
    vp.SetOrientation(QPageLayout::Landscape);
    addTitles(vp, sheet, options);
    std::vector<CalendarStyle> styles;
    for (const double points : MonthPoints)
        styles.push_back(styleOf(options, points));
    const auto shared = std::make_shared<const MonthContent>(sheet.content);
    vp.AddFigure(
        [shared, styles](QPainter& painter, const QRectF& room) { PaintMonthPage(painter, room, *shared, styles); });
    return vp;
}

void TellLandscape() {
    MsgBox(QStringLiteral("To print in Landscape mode, select Printer Properties from Print dialog window."),
           InformationBox, QStringLiteral("Solvane"));
}

void TellUnreadSchedule() {
    MsgBox(QObject::tr("The schedule could not be read, so it is not printed. Reload it and try again."),
           ExclamationBox, QStringLiteral("Print"));
}
