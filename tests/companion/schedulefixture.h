#pragma once

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

#include "companion/companionitem.h"
#include "companion/frmfhappts.h"
#include "platform/calendar/ctmday.h"
#include "platform/controls/ctlist.h"
#include "tests/companion/writesfixture.h"

/// The companion's schedule of Wednesday, March 11, 2026, with a column each for Lane (1), Moss (2) and Reed (3),
/// before Reed, who may see all schedules. The test itself is the companion's other users.
class ScheduleFixture : public WritesFixture {
  protected:
    static constexpr int LaneColumn = 1, MossColumn = 2, ReedColumn = 3;

    frmFHAppts& open() {
        view = std::make_unique<frmFHAppts>(main);
        view->resize(1000, 700);
        view->show();
        view->activateWindow();
        settle();
        return *view;
    }
    /// What is told after a routine has been told when this returns.
    static void settleBoxes() {
        QTest::qWait(0);
        settle();
    }
    void reopen() {
        view->close();
        view.reset();
        open();
    }

    [[nodiscard]] ctMDay& grid() const { return view->Grid(); }
    /// The items that stand in a column: "540-590 O'Brien, Anna", in their order.
    [[nodiscard]] QStringList column(int number) const {
        QStringList found;
        for (int index = 1; index <= grid().ItemCount(); ++index) {
            const CalendarItem& item = std::as_const(grid()).Item(index);
            if (grid().ColumnOfItem(index) == number)
                found << QStringLiteral("%1-%2 %3").arg(item.ItemStart).arg(item.ItemEnd).arg(item.ItemText);
        }
        found.sort();
        return found;
    }
    [[nodiscard]] int indexOf(int key, int color, int inColumn = 0) const {
        for (int index = 1; index <= grid().ItemCount(); ++index) {
            const CalendarItem& item = std::as_const(grid()).Item(index);
            if (item.ItemKey.toInt() == key && item.ItemColor == color &&
                (inColumn == 0 || grid().ColumnOfItem(index) == inColumn))
                return index;
        }
        return 0;
    }
    /// The item of an appointment, in whichever column; an empty one when there is none.
    [[nodiscard]] CalendarItem appointment(int key) const {
        const int scheduled = indexOf(key, companioncolor::Scheduled);
        return std::as_const(grid()).Item(scheduled > 0 ? scheduled : indexOf(key, companioncolor::Charged));
    }
    [[nodiscard]] CalendarItem event(int key) const {
        return std::as_const(grid()).Item(indexOf(key, companioncolor::Event));
    }
    [[nodiscard]] bool hasEvent(int key, int inColumn = 0) const {
        return indexOf(key, companioncolor::Event, inColumn) > 0;
    }
    void selectAppointment(int key) {
        grid().setSelectedItem(
            std::max(indexOf(key, companioncolor::Scheduled), indexOf(key, companioncolor::Charged)));
        settleBoxes();
    }
    void selectEvent(int key) {
        grid().setSelectedItem(indexOf(key, companioncolor::Event));
        settleBoxes();
    }

    [[nodiscard]] ctList& providers() const { return *view->findChild<ctList*>(QStringLiteral("ctList1")); }
    /// The providers' boxes in the order of the list: "+Lane, Ben -Moss, Eve".
    [[nodiscard]] QString checks() const {
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
    [[nodiscard]] QStringList titles() const {
        QStringList found;
        for (int number = 1; number <= grid().ColumnCount(); ++number)
            found << grid().ColumnTitle(number);
        return found;
    }

    /// The rows of the details: "Name|Anna O'Brien".
    [[nodiscard]] QStringList details() const {
        const auto& list = *view->findChild<ctList*>(QStringLiteral("ctListInfo"));
        QStringList rows;
        for (int row = 0; row < list.RowCount(); ++row)
            rows << list.ShownCells(row).join(QLatin1Char('|'));
        return rows;
    }
    [[nodiscard]] QString note() const {
        return view->findChild<QPlainTextEdit*>(QStringLiteral("txtnote"))->toPlainText();
    }
    [[nodiscard]] QString label(const char* name) const {
        return view->findChild<QLabel*>(QString::fromLatin1(name))->text();
    }
    [[nodiscard]] QAction& command(const char* name) const {
        return *view->findChild<QAction*>(QString::fromLatin1(name));
    }
    void trigger(const char* name) {
        command(name).trigger();
        settle();
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

    std::unique_ptr<frmFHAppts> view;
};
