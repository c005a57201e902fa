#include <QStackedWidget>

#include "companion/companionitem.h"
#include "companion/companiontime.h"
#include "companion/frmfhappts.h"
#include "companion/seriesdays.h"
#include "data/courtesycalls.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/sql.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Raw;
using db::ReadTogether;
using db::Recordset;
using db::Sql;

namespace {

constexpr int DaysRead = 8;  ///< One more than the week shows.
constexpr int MinutesPerHour = 60;

// The dates stand in a form that both engines read in every language, which the desktop's short date is not.
QString appointmentsStatement(const CompanionSpan& span, bool hasSessionColumn) {
    return Sql(
        "SELECT ClntFirstName, ClntLastName, CtrnId, {}CtrnTime, CtrnDuration, CtrnStatus, TranName, ctrnNotes, recurTranID, CtrnCallStatus {} FROM (ClientTransactions INNER JOIN TransactionCodes ON ClientTransactions.TranId = TransactionCodes.TranId)  INNER JOIN Clients On ClientTransactions.ClntId = Clients.ClntId  WHERE ( ClientTransactions.ProvId = {} OR ClientTransactions.ProvIdAdditional = {}) AND CtrnDate >= '{}' AND CtrnDate <= '{}' AND TranType + '' = 'C'  AND CtrnDuration > 0  AND CtrnTime > '12:00:00 AM'",
        Raw{span.column == 0 ? QStringLiteral("CtrnDate, ") : QString()},
        Raw{hasSessionColumn ? QStringLiteral(", SVSessionId") : QString()}, span.provId, span.provId, span.first,
        span.last);
}

QString eventsStatement(const CompanionSpan& span) {
    return Sql(
        "SELECT CalendarEvents.CEveId, CEveName, CEveDate, CEveEndDate, CEveTime, CEveAllDayInd, CEveDuration, RecrId, CEveReminderInd FROM CalendarEvents LEFT JOIN CalendarProviderEvents On CalendarEvents.CEveId = CalendarProviderEvents.CEveId WHERE (CEveAllProvidersInd = 1 OR (ProvId IS NULL OR ProvId= {}))   AND CEveDate <= '{}'  AND (( CEveEndDate IS NULL AND calendarevents.recrid > 0) OR (CEveEndDate IS NULL AND (calendarevents.recrid <> 0) AND CEveDate>= '{}') OR CEveEndDate>= '{}') order by cevetime desc",
        span.provId, span.last, span.first, span.first);
}

/// Returns two statements for each span: for its appointments and for its events.
QStringList statementsOf(const std::vector<CompanionSpan>& spans, bool hasSessionColumn) {
    QStringList statements;
    for (const CompanionSpan& span : spans)
        statements << appointmentsStatement(span, hasSessionColumn) << eventsStatement(span);
    return statements;
}

bool isScheduled(const CalendarItem& item) {
    return item.ItemColor == companioncolor::Scheduled;
}

// Only appointments that are still awaited show the picture of their courtesy call.
QStringList callStatements(std::vector<CompanionRows>& rows) {
    QStringList statements;
    for (CompanionRows& each : rows) {
        for (; !each.appointments.Eof(); each.appointments.MoveNext())
            statements << CallIconStatement(each.appointments["CtrnCallStatus"].text());
        each.appointments.MoveFirst();
    }
    return statements;
}

void place(CalendarItem& item, const CompanionSpan& span, QDate day) {
    item.ItemDay = day;
    if (span.column > 0)
        item.ItemColumn = span.column;
}

}  // namespace

void frmFHAppts::Reload() {
    if (!providersRead_)
        LoadProviders();
    else if (mode_ == Mode::Week)
        LoadWeekView(weekProvider_.provId);
    else
        loadDay();
}

void frmFHAppts::loadDay() {
    const QDate date = main().Date();
    std::vector<CompanionSpan> spans;
    for (const CompanionProvider& provider : columns_)
        spans.push_back({static_cast<int>(spans.size()) + 1, provider.provId, date, date});
    load(date, {}, spans);
}

void frmFHAppts::LoadWeekView(int ProvId) {
    const QDate first = main().Date();
    load(first, QString::number(ProvId), {{0, ProvId, first, first.addDays(DaysRead - 1)}});
}

void frmFHAppts::load(QDate date, const QString& of, const std::vector<CompanionSpan>& spans) {
    DayBoard& board = Board();
    const QStringList ofSpans = statementsOf(spans, HasSVSessionCol_);
    QStringList statements = ofSpans;
    if (const std::optional<CalendarItem> selected = SelectedItem(); selected && board.Shows(date, of))
        statements << detailStatements(*selected);
    board.BeginLoad(date, of);
    showDetails(0);
    services_.clear();
    allDayEvents_.clear();
    // Both stay for the details of the item that is selected again.
    std::shared_ptr<db::Connection> companion;
    std::optional<ReadTogether> together;
    readInto(*boards_, QStringLiteral("Error loading appointments. "), [&] {
        if (spans.empty())
            return;
        companion = Companion();
        together.emplace(*companion, statements);
        loadSpans(*companion, spans, ofSpans);
    });
    board.EndLoad();
    showTitles();
}

void frmFHAppts::loadSpans(db::Connection& companion, const std::vector<CompanionSpan>& spans,
                           const QStringList& statements) {
    std::vector<CompanionRows> rows;
    rows.reserve(spans.size());
    auto statement = statements.begin();
    for (const CompanionSpan& span : spans) {
        Recordset appointments(*statement++, companion);
        rows.push_back({span, std::move(appointments), Recordset(*statement++, companion)});
    }
    SeriesDays series(companion, rows);
    const ReadTogether calls(Session().Connection, callStatements(rows));
    callIcons_.clear();
    std::optional<db::DatabaseError> fault;
    for (CompanionRows& each : rows)
        LoadCalendar(each, series, fault);
    if (fault)
        TellError(QStringLiteral("Error loading appointments. "), *fault);
}

void frmFHAppts::LoadCalendar(CompanionRows& rows, SeriesDays& series, std::optional<db::DatabaseError>& fault) {
    for (; !rows.appointments.Eof(); rows.appointments.MoveNext())
        addAppointment(rows.appointments, rows.span);
    for (; !rows.events.Eof(); rows.events.MoveNext()) {
        try {
            addEvent(rows.events, rows.span, series);
        } catch (const db::DatabaseError& error) {
            // One series without an interval does not hide what else the day holds.
            if (error.number != DivideByZero)
                throw;
            fault = error;
        }
    }
}

void frmFHAppts::addAppointment(const Recordset& row, const CompanionSpan& span) {
    CalendarItem item = AppointmentItem(row, HasSVSessionCol_);
    // The statement leaves out only midnight without a date.
    if (item.ItemStart <= 0)
        return;
    Board().WidenTo(item.ItemStart);
    if (const QString call = row["CtrnCallStatus"].text(); isScheduled(item) && !call.isEmpty())
        item.ItemStatusIcon = callIcon(call);
    place(item, span, span.column > 0 ? span.first : row["CtrnDate"].date());
    services_[item.ItemKey] = row["TranName"].text();
    Board().AddRow(std::move(item));
}

int frmFHAppts::callIcon(const QString& code) {
    const auto known = callIcons_.constFind(code);
    if (known != callIcons_.constEnd())
        return *known;
    return *callIcons_.insert(code, GetCallStatusIcon(Session().Connection, code));
}

void frmFHAppts::addEvent(const Recordset& row, const CompanionSpan& span, SeriesDays& series) {
    const bool reminder = row["CEveReminderInd"].integer() == 1;
    if (row["RecrId"].integer() > 0) {
        for (const QDate day : series.DaysOf(row, span))
            addOccurrence(row, span, day, reminder);
        return;
    }
    addOccurrence(row, span, span.column > 0 ? span.first : row["CEveDate"].date(), !reminder);
}

// A series opens the hours before the day when it reminds, a single event when it does not.
void frmFHAppts::addOccurrence(const Recordset& row, const CompanionSpan& span, QDate day, bool widens) {
    CalendarItem item = EventItem(row);
    const int start = item.ItemStart;
    const ctMDay& grid = Grid();
    if (row["CEveAllDayInd"].integer() == 1) {
        item.ItemStart = grid.FirstTime();
        item.ItemEnd = grid.LastTime();
        allDayEvents_.insert(item.ItemKey);
    }
    place(item, span, day);
    Board().AddRow(std::move(item));
    if (widens && start >= 0 && start < grid.FirstTime())
        Board().WidenTo(start / MinutesPerHour * MinutesPerHour);
}

std::shared_ptr<db::Connection> frmFHAppts::Companion() {
    std::shared_ptr<db::Connection> companion = companion_.lock();
    if (companion)
        return companion;
    companion = std::make_shared<db::Connection>();
    companion->Open(Session().FHConnectionString);
    companion_ = companion;
    return companion;
}
