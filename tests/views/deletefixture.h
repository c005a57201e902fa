#pragma once

#include <QAction>
#include <QPushButton>

#include "appointments/frmdelrepeat.h"
#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

inline const QString deleteQuestion = QStringLiteral("Are you sure you want to delete this appointment?");
inline const QString deleteTitle = QStringLiteral("Delete Appointment");

/// Deleting from the day: what is stored besides the appointments themselves, and how the questions are answered.
class DayDelete : public DayFixture {
  protected:
    [[nodiscard]] qint64 count(const char* table, const char* keyColumn, qint64 key) {
        return database_.number(db::Sql("Select Count(*) from {} Where {} = {}", db::Raw{QLatin1String(table)},
                                        db::Raw{QLatin1String(keyColumn)}, key));
    }
    [[nodiscard]] qint64 rows(qint64 key) { return count("appointments", "nkeyid", key); }
    [[nodiscard]] qint64 bookings(qint64 key) { return count("roomschedule", "apptid", key); }
    void book(qint64 key) {
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values(%1, 1, 540, 590, '2026/03/11')")
                .arg(key));
    }
    void addMember(qint64 key, const char* name) {
        run(QStringLiteral("Insert Into AppointmentsGroup (nKeyId, PatientName) Values(%1, '%2')")
                .arg(key)
                .arg(QLatin1String(name)));
    }
    [[nodiscard]] QStringList audit() {
        QStringList lines;
        db::Recordset log(QStringLiteral("Select * from AuditLog"), database_.connection());
        for (; !log.Eof(); log.MoveNext())
            lines << QStringList{log["LogUser"].text(), log["LogLocation"].text(), log["LogListId"].text(),
                                 log["LogNotes"].text(), log["LogDescription"].text()}
                         .join(QLatin1Char('/'));
        return lines;
    }
    /// A weekly appointment of a series; the first has no `ref` yet and becomes it.
    qint64 addRepeat(const char* text, QDate day, qint64 ref = 0) {
        const qint64 key = add(anAppointment(text).on(day).with("repeating", "1"));
        run(QStringLiteral("Update appointments Set repeating_ref = %1 Where nkeyid = %2")
                .arg(ref ? ref : key)
                .arg(key));
        return key;
    }
    qint64 addActivity(const char* text, const QStringList& attendees) {
        const qint64 key = add(anAppointment(text).of("~EVT").status(ncolor::Activity));
        for (const QString& attendee : attendees)
            run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, '%2')")
                    .arg(key)
                    .arg(attendee));
        return key;
    }
    static QPushButton& button(QDialog& form, const char* name) {
        return *form.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    /// The rows of the list, "x" before the checked ones.
    static QStringList listed(QDialog& form) {
        const ctList& list = *dynamic_cast<frmdelrepeat&>(form).ctList1;
        QStringList rows;
        for (int row = 0; row < list.RowCount(); ++row)
            rows << (list.Checked(row, 1) ? "x " : "") +
                        QStringList{list.Cell(row, 2), list.Cell(row, 3), list.Cell(row, 4)}.join(QLatin1Char('/'));
        return rows;
    }
    void deleteSelected() {
        ASSERT_TRUE(command("mnuADelete").isEnabled());
        command("mnuADelete").trigger();
    }
    void deleteAnswering(Answer answer) {
        desk.expectBox(deleteQuestion, deleteTitle, answer);
        deleteSelected();
    }
};
