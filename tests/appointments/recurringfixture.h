#pragma once

#include <QButtonGroup>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "appointments/frmrecurappt.h"
#include "appointments/seriesdates.h"
#include "session/openview.h"
#include "tests/appointments/appointmentfixture.h"

/// The day view with one appointment selected.
class DayWithSelection : public OpenView {
  public:
    DayWithSelection() { registerOpenView(); }
    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const override { return item; }
    [[nodiscard]] std::optional<SelectedSlot> SelectedTime() const override { return std::nullopt; }
    void DropSelection() override {}
    std::optional<CalendarItem> item;
};

/// The dialog that repeats the appointment which is selected in that view.
class Recurring : public AppointmentFixture {
  protected:
    Recurring() {
        Session().ProviderId = QStringLiteral("REED");
        desk.setNow(QDateTime(day, QTime(8, 0)));
        key = appointment({});
        run(db::Sql(
            "Update appointments Set ncolor = 16711681, CapptNote = '90834|bring the card', CLOCATION = 'Annex' Where nkeyid = {}",
            key));
        CalendarItem item;
        item.ItemKey = QString::number(key);
        item.ItemDay = day;  // A Wednesday.
        item.ItemStart = 540;
        item.ItemEnd = 600;
        item.ItemText = QStringLiteral("Jones, Mary");
        item.ItemLocation = QStringLiteral("Annex");
        item.ItemNote = QStringLiteral("90834|bring the card|10017|A-17");
        view.item = item;
    }
    void run(const QString& statement) { database.connection().Execute(statement); }
    static void press(frmRecurAppt& form, int command) { form.cmdRecur[static_cast<std::size_t>(command)]->click(); }
    static void choose(QButtonGroup* group, int id) { group->button(id)->click(); }
    qint64 count() { return database.number(QStringLiteral("Select Count(*) from appointments")); }
    QString datesOfSeries() {
        QStringList dates;
        for (db::Recordset rows(
                 db::Sql("Select dapptdate from appointments Where repeating_ref = {} Order by dapptdate", key),
                 database.connection());
             !rows.Eof(); rows.MoveNext())
            dates << rows[0].date().toString(QStringLiteral("M/d"));
        return dates.join(QLatin1Char(' '));
    }
    void expectConflict(const char* date, Answer answer) {
        desk.expectBox(QStringLiteral("You have another appointment on %1 which conflicts with this one. Add anyway?")
                           .arg(QLatin1String(date)),
                       QStringLiteral("Appointment Conflict"), answer);
    }

    /// The list of dates, each row's cells joined by " | " behind its tick: x, - or ? for undecided; none for the
    /// appointment itself.
    static QStringList listed(const frmRecurAppt& form) {
        QStringList rows;
        for (int i = 0; i < form.seriesdates->lstdates->topLevelItemCount(); ++i) {
            const QTreeWidgetItem& row = *form.seriesdates->lstdates->topLevelItem(i);
            const QVariant tick = row.data(0, Qt::CheckStateRole);
            const QString mark =
                !tick.isValid() ? QString() : QStringLiteral("-?x").mid(tick.toInt(), 1) + QLatin1Char(' ');
            QStringList cells;
            for (int column = 0; column < 3; ++column)
                cells << row.text(column);
            rows << mark + cells.join(QStringLiteral(" | "));
        }
        return rows;
    }
    /// Puts the cursor on the n-th date and presses Space.
    static void pressSpaceOn(frmRecurAppt& form, int n) {
        QTreeWidget& list = *form.seriesdates->lstdates;
        list.setCurrentItem(list.topLevelItem(n));
        QTest::keyClick(&list, Qt::Key_Space);
    }

    DayWithSelection view;
    int key = 0;
};
