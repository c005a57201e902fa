#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include "data/codes.h"
#include "followup/frmarrivaltime.h"
#include "followup/frmcheckedin.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/sql.h"
#include "platform/desktop/forms.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

namespace {

class DayCheckIn : public DayFixture {
  protected:
    DayCheckIn() {
        desk.setNow({QDate(2026, 3, 11), QTime(9, 5)});
        Session().AllProviders = true;
    }
    ~DayCheckIn() override { delete list(); }

    static void click(QDialog& form, const char* name) {
        form.findChild<QPushButton*>(QString::fromLatin1(name))->click();
    }
    static ctDEdit& field(QDialog& form) { return *dynamic_cast<frmarrivalTime&>(form).ctstart; }
    [[nodiscard]] static frmCheckedIn* list() {
        return qobject_cast<frmCheckedIn*>(FindForm(QStringLiteral("frmCheckedIn")));
    }
    /// The rows of the list, cells joined by "/".
    [[nodiscard]] static QStringList listed() {
        QStringList rows;
        for (int row = 0; row < list()->ctList1->RowCount(); ++row)
            rows << list()->ctList1->Cells(row).join(QLatin1Char('/'));
        return rows;
    }
    [[nodiscard]] QString stored(const char* column, qint64 key) {
        return database_.text(
            db::Sql("Select {} from appointments Where nkeyid = {}", db::Raw{QLatin1String(column)}, key));
    }
    void checkInAt(const char* time) {
        desk.expectForm("frmarrivalTime", [time](QDialog& form) {
            if (*time != '\0')
                field(form).setText(QString::fromLatin1(time));
            click(form, "cmdOk");
        });
        command("mnuCheckediN").trigger();
    }
};

}  // namespace

TEST_F(DayCheckIn, BeginsWithThePresentAndStoresArrivalAndStatus) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");

    checkInAt("");

    EXPECT_EQ(stored("CheckInTime", key), "03/11/26 09:05 AM");
    EXPECT_EQ(stored("ncolor", key), "16777215");
    EXPECT_EQ(item("Anna").ItemColor, ncolor::CheckedIn);
    EXPECT_EQ(item("Anna").ItemStatusIcon, 3);
    EXPECT_TRUE(command("mnuCheckediN").isChecked());
    EXPECT_TRUE(info().contains(QStringLiteral("Status;Checked-In")));
    EXPECT_EQ(Session().CheckInKey, 0);
}

TEST_F(DayCheckIn, WritesTheDayFirstWhereTheSystemDoes) {
    Session().DateOrder = 1;
    const qint64 key = add(anAppointment("Anna"));
    open();
    select("Anna");

    checkInAt("8:50");

    EXPECT_EQ(stored("CheckInTime", key), "11/03/26 08:50 AM");
}

TEST_F(DayCheckIn, ASecondTimeBeginsWithTheStoredArrival) {
    add(anAppointment("Anna").status(ncolor::CheckedIn).with("CheckInTime", "'03/11/26 8:47 AM'"));
    open();
    select("Anna");

    desk.expectForm("frmarrivalTime", [](QDialog& form) {
        EXPECT_EQ(field(form).Time(), 8 * 60 + 47);
        form.reject();
    });
    command("mnuCheckediN").trigger();
}

TEST_F(DayCheckIn, CancelLeavesItemAndRowAsTheyWere) {
    run("Insert Into Patient_Alerts (patient_id, alert_type, Status, alert) Values('7', 'Check-In', 1, 'Owes a copay')");
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending).with("patientid", "'7'"));
    open();
    select("Anna");
    const CalendarItem before = item("Anna");

    desk.expectForm("frmarrivalTime", [](QDialog& form) { click(form, "cmdcancel"); });
    command("mnuCheckediN").trigger();

    EXPECT_EQ(item("Anna"), before);
    EXPECT_EQ(stored("CheckInTime", key), "");
    EXPECT_EQ(stored("ncolor", key), "16711681");
    EXPECT_FALSE(command("mnuCheckediN").isChecked());
}

TEST_F(DayCheckIn, ShowsThePatientsAlertAfterwards) {
    run("Insert Into Patient_Alerts (patient_id, alert_type, Status, alert) Values('7', 'Check-In', 1, 'Owes a copay')");
    add(anAppointment("Anna").with("patientid", "'7'"));
    open();
    select("Anna");

    desk.expectForm("frmarrivalTime", [](QDialog& form) { click(form, "cmdOk"); });
    desk.expectForm("frmAlert", [](QDialog& form) {
        EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lblalert"))->text(), "Owes a copay");
    });
    command("mnuCheckediN").trigger();
}

TEST_F(DayCheckIn, OfARowThatAnotherDeskDeletedIsTold) {
    const qint64 key = add(anAppointment("Anna"));
    open();
    select("Anna");

    desk.expectForm("frmarrivalTime", [&](QDialog& form) {
        database_.connection().Execute(db::Sql("Delete from appointments Where nkeyid = {}", key));
        click(form, "cmdOk");
    });
    desk.expectBox(QStringLiteral("Unable to save. Appointment not found. It may have been deleted by another user."),
                   QStringLiteral("Appointment not found"));
    command("mnuCheckediN").trigger();

    EXPECT_TRUE(itemTexts().isEmpty());
}

TEST_F(DayCheckIn, ThatTheDatabaseRefusesIsToldAndTheFormStays) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    const QString reason = database_.refuse(QStringLiteral("Update"), QStringLiteral("appointments"));

    desk.expectForm("frmarrivalTime", [&](QDialog& form) {
        desk.expectBox(QStringLiteral("Error saving arrival time. ") + reason, QStringLiteral("Error"));
        click(form, "cmdOk");
        EXPECT_NE(form.result(), QDialog::Accepted);
        form.reject();
    });
    command("mnuCheckediN").trigger();

    EXPECT_EQ(item("Anna").ItemColor, ncolor::Pending);
    EXPECT_EQ(stored("ncolor", key), "16711681");
}

TEST_F(DayCheckIn, TheOpenListFollowsMissedAndCancelButNotKept) {
    add(anAppointment("Anna").status(ncolor::CheckedIn).with("CheckInTime", "'03/11/26 8:47 AM'"));
    add(anAppointment("Bert").at(10, 0).status(ncolor::CheckedIn));
    open();
    command("mnuVCheckedin").trigger();
    ASSERT_NE(list(), nullptr);
    EXPECT_EQ(listed(), (QStringList{"Anna/03/11/26 8:47 AM/3/11/2026 9:00 AM/REED", "Bert//3/11/2026 10:00 AM/REED"}));

    select("Anna");
    command("mnuAMissed").trigger();
    EXPECT_EQ(listed().size(), 1);
    select("Bert");
    command("mnuAKept").trigger();
    EXPECT_EQ(listed().size(), 1) << "A kept patient leaves with the next reading.";
    list()->loadcheckedin();
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(DayCheckIn, TheListIsOpenOnceAndReadEveryMinute) {
    open();
    command("mnuVCheckedin").trigger();
    frmCheckedIn* first = list();
    command("mnuVCheckedin").trigger();

    EXPECT_EQ(list(), first);
    EXPECT_EQ(first->Timer1.interval(), 60000);
    EXPECT_TRUE(first->Timer1.isActive());
}
