#pragma once

#include <QLabel>
#include <QPlainTextEdit>

#include "platform/controls/ctlist.h"
#include "tests/companion/commandsfixture.h"

/// The companion's schedule as Reed sees it, who may see all schedules: columns, items, providers, details. The test
/// itself is the companion's other users.
class ScheduleFixture : public CommandsFixture {
  protected:
    /// What is told after a routine has been told when this returns.
    static void settleBoxes() {
        QTest::qWait(0);
        settle();
    }
    void reopen() {
        view_->close();
        view_.reset();
        open();
    }

    [[nodiscard]] ctMDay& grid() { return view_->Grid(); }
    /// The items that stand in a column: "540-590 O'Brien, Anna", in their order.
    [[nodiscard]] QStringList column(int number) {
        QStringList found;
        for (int index = 1; index <= grid().ItemCount(); ++index) {
            const CalendarItem& item = std::as_const(grid()).Item(index);
            if (grid().ColumnOfItem(index) == number)
                found << QStringLiteral("%1-%2 %3").arg(item.ItemStart).arg(item.ItemEnd).arg(item.ItemText);
        }
        found.sort();
        return found;
    }
    /// The item of an appointment, in whichever column; an empty one when there is none.
    [[nodiscard]] CalendarItem appointment(int key) {
        const int scheduled = indexOf(key, companioncolor::Scheduled);
        return std::as_const(grid()).Item(scheduled > 0 ? scheduled : indexOf(key, companioncolor::Charged));
    }
    [[nodiscard]] CalendarItem event(int key) {
        return std::as_const(grid()).Item(indexOf(key, companioncolor::Event));
    }
    [[nodiscard]] bool hasEvent(int key, int inColumn = 0) { return indexOf(key, companioncolor::Event, inColumn) > 0; }
    void selectAppointment(int key) {
        grid().setSelectedItem(
            std::max(indexOf(key, companioncolor::Scheduled), indexOf(key, companioncolor::Charged)));
        settleBoxes();
    }
    void selectEvent(int key) {
        grid().setSelectedItem(indexOf(key, companioncolor::Event));
        settleBoxes();
    }

    [[nodiscard]] ctList& providers() { return *view_->findChild<ctList*>(QStringLiteral("ctList1")); }
    /// The providers' boxes in the order of the list: "+Lane, Ben -Moss, Eve".
    [[nodiscard]] QString checks() {
        QStringList boxes;
        for (int row = 0; row < providers().RowCount(); ++row)
            boxes << QLatin1Char(providers().Checked(row, 1) ? '+' : '-') + providers().ItemText(row);
        return boxes.join(QLatin1Char(' '));
    }
    void clickBox(int row) {
        providers().SelectRow(row);
        QTest::keyClick(&providers(), Qt::Key_Space);
        settle();
    }
    [[nodiscard]] QStringList titles() {
        QStringList found;
        for (int number = 1; number <= grid().ColumnCount(); ++number)
            found << grid().ColumnTitle(number);
        return found;
    }

    /// The rows of the details: "Name|Anna O'Brien".
    [[nodiscard]] QStringList details() {
        const auto& list = *view_->findChild<ctList*>(QStringLiteral("ctListInfo"));
        QStringList rows;
        for (int row = 0; row < list.RowCount(); ++row)
            rows << list.ShownCells(row).join(QLatin1Char('|'));
        return rows;
    }
    [[nodiscard]] QString note() { return view_->findChild<QPlainTextEdit*>(QStringLiteral("txtnote"))->toPlainText(); }
    [[nodiscard]] QString label(const char* name) {
        return view_->findChild<QLabel*>(QString::fromLatin1(name))->text();
    }
    void clickHeading(int number) {
        QTest::mouseClick(&grid(), Qt::LeftButton, {}, grid().HeadingRect(number).center());
        settle();
    }
    /// Opens the week of the provider in that column of the day.
    void openWeekOf(int number) {
        clickHeading(number);
        trigger("mnuAShow");
    }

    /// The companion cannot be reached from now on. Gives the reason that its connections tell.
    QString takeCompanionAway() {
        Session().FHConnectionString = QStringLiteral("Data Source=/nowhere;Initial Catalog=gone");
        try {
            db::Connection().Open(Session().FHConnectionString);
        } catch (const db::DatabaseError& error) {
            return error.description;
        }
        ADD_FAILURE() << "The companion is still there.";
        return {};
    }
    void bringCompanionBack() { Session().FHConnectionString = companion.connectionText(); }

    /// An event of one day as its row tells it. The columns and values are SQL.
    int addEventRow(const char* columns, const char* values, const std::vector<int>& attendees = {1}) {
        there(QStringLiteral("Insert Into CalendarEvents (CEveName, %1) Values ('Meeting', %2)")
                  .arg(QString::fromLatin1(columns), QString::fromLatin1(values)));
        const int key = static_cast<int>(companion.connection().LastIdentity());
        for (const int provider : attendees)
            attend(key, provider);
        return key;
    }
    /// A series of events that takes place on each day from March 2, 2026 on, and its row in CalendarEvents.
    int addDailySeries(const char* time = "1900-01-01 09:00", const char* more = "0", const char* last = "Null",
                       const std::vector<int>& attendees = {1}) {
        there("Insert Into RecurringEvents (RecrPattern, RecrDailyDays, RecrDailyWeekdayInd) Values (0, 1, 0)");
        const qint64 series = companion.connection().LastIdentity();
        return addEventRow("CEveReminderInd, RecrId, CEveDate, CEveEndDate, CEveTime, CEveDuration",
                           QStringLiteral("%1, %2, '2026/03/02', %3, '%4', 30")
                               .arg(QLatin1String(more))
                               .arg(series)
                               .arg(QLatin1String(last), QLatin1String(time))
                               .toLatin1()
                               .constData(),
                           attendees);
    }
};
