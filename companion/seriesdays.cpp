#include "companion/seriesdays.h"

namespace {

bool isSeries(const db::Recordset& event) {
    return event["RecrId"].integer() > 0;
}

/// Calls `use` for each series among the rows.
template <typename Use>
void forEachSeries(std::vector<CompanionRows>& rows, Use&& use) {
    for (CompanionRows& each : rows) {
        for (; !each.events.Eof(); each.events.MoveNext())
            if (isSeries(each.events))
                use(each.events, each.span);
        each.events.MoveFirst();
    }
}

}  // namespace

SeriesDays::SeriesDays(db::Connection& companion, std::vector<CompanionRows>& rows) : companion_(companion) {
    QStringList patterns;
    forEachSeries(rows, [&](const db::Recordset& event, const CompanionSpan& /*span*/) {
        patterns << RecurringEvent::PatternStatement(static_cast<int>(event["RecrId"].integer()));
    });
    const db::ReadTogether together(companion_, patterns);
    QStringList exceptions;
    forEachSeries(rows, [&](const db::Recordset& event, const CompanionSpan& span) {
        const RecurringEvent& series = seriesOf(event);
        // A series without an interval is told where its days are asked.
        db::Ignoring([&] {
            for (QDate day = span.first; day <= span.last; day = day.addDays(1))
                if (series.IsInPattern(day))
                    exceptions << series.ExceptionStatement(day, span.provId);
        });
    });
    exceptions_.emplace(companion_, exceptions);
}

const RecurringEvent& SeriesDays::seriesOf(const db::Recordset& event) {
    const QString key = event["CEveId"].text();
    auto found = series_.find(key);
    if (found == series_.end()) {
        found = series_.insert(key, {});
        found->DBGetInfo(companion_, static_cast<int>(event["RecrId"].integer()), event["CEveDate"].text(),
                         event["CEveEndDate"].text(), event["CEveTime"].text(),
                         static_cast<int>(event["CEveAllDayInd"].integer()),
                         static_cast<int>(event["CEveDuration"].integer()));
    }
    return *found;
}

std::vector<QDate> SeriesDays::DaysOf(const db::Recordset& event, const CompanionSpan& span) {
    const RecurringEvent& series = seriesOf(event);
    std::vector<QDate> days;
    for (QDate day = span.first; day <= span.last; day = day.addDays(1))
        if (series.IsDateInSeries(companion_, day, span.provId))
            days.push_back(day);
    return days;
}
