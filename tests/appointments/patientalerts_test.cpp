#include "appointments/patientalerts.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "appointments/frmalert.h"
#include "tests/appointments/appointmentfixture.h"

namespace {

const QString Mary = QStringLiteral("10017");

/// Today is March 11, 2026.
class PatientAlerts : public AppointmentFixture {
  protected:
    void alert(const QString& text, QDate begin = {}, QDate end = {}, const QString& patient = Mary) {
        db::Recordset row(QStringLiteral("Select * from Patient_Alerts Where 0=1"), database.connection(),
                          db::Lock::Optimistic);
        row.AddNew();
        row.Set("patient_id", patient);
        row.Set("alert_type", "Check-In");
        row.Set("Status", 1);
        row.Set("BeginDate", begin);
        row.Set("EndDate", end);
        row.Set("alert", text);
        row.Update();
    }
    void expectAlert(const QString& text) {
        desk.expectForm("frmAlert", [text](QDialog& form) {
            EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lblalert"))->text(), text);
            form.accept();
        });
    }
    static void show(const QString& patient = Mary) { ShowPatientAlerts(patient, QString::fromLatin1(CheckInAlert)); }

    QDate yesterday = day.addDays(-1);
    QDate tomorrow = day.addDays(1);
};

}  // namespace

TEST_F(PatientAlerts, APatientWithoutAlertsShowsNothing) {
    show();
}

TEST_F(PatientAlerts, AnAlertWithoutDatesIsAlwaysShown) {
    alert(QStringLiteral("Ask for the co-payment; it's due"));
    expectAlert(QStringLiteral("Ask for the co-payment; it's due"));
    show();
}

TEST_F(PatientAlerts, AnAlertIsShownFromItsFirstDay) {
    alert(QStringLiteral("Begins today"), day, tomorrow);
    expectAlert(QStringLiteral("Begins today"));
    show();
}

TEST_F(PatientAlerts, AnAlertThatEndsTodayIsNoLongerShown) {
    alert(QStringLiteral("Over"), yesterday, day);
    show();
}

TEST_F(PatientAlerts, AnAlertThatBeginsTomorrowIsNotShownYet) {
    alert(QStringLiteral("Not yet"), tomorrow, tomorrow.addDays(1));
    show();
}

TEST_F(PatientAlerts, AnAlertWithOnlyOneDateIsAlwaysShown) {
    alert(QStringLiteral("Only a begin"), tomorrow, {});
    expectAlert(QStringLiteral("Only a begin"));
    show();
    database.connection().Execute(QStringLiteral("Delete from Patient_Alerts"));
    alert(QStringLiteral("Only an end"), {}, yesterday);
    expectAlert(QStringLiteral("Only an end"));
    show();
}

TEST_F(PatientAlerts, ATimeOfDayInItsDatesDoesNotMatter) {
    alert(QStringLiteral("From noon"), day, tomorrow);
    database.connection().Execute(QStringLiteral("Update Patient_Alerts Set BeginDate = '2026/03/11 12:00:00'"));
    expectAlert(QStringLiteral("From noon"));
    show();
}

TEST_F(PatientAlerts, OnlyTheFirstAlertCounts) {
    alert(QStringLiteral("Over"), yesterday, day);
    alert(QStringLiteral("Second"));
    show();
}

TEST_F(PatientAlerts, AlertsOfAnotherKindOrPatientAndInactiveOnesAreNotShown) {
    alert(QStringLiteral("Inactive"));
    database.connection().Execute(QStringLiteral("Update Patient_Alerts Set Status = 0"));
    alert(QStringLiteral("Somebody else's"), {}, {}, QStringLiteral("10018"));
    show();
    database.connection().Execute(QStringLiteral("Delete from Patient_Alerts"));
    alert(QStringLiteral("On arrival"));
    ShowPatientAlerts(Mary, QString::fromLatin1(AppointmentAlert));
}

TEST_F(PatientAlerts, AnAlertWithoutATextOpensNothing) {
    alert(QStringLiteral("  \n"));
    show();
    database.connection().Execute(QStringLiteral("Update Patient_Alerts Set alert = Null"));
    show();
}

TEST_F(PatientAlerts, NoPatientHasNoAlerts) {
    alert(QStringLiteral("Nobody's"), {}, {}, QString());
    show(QString());
    show(QStringLiteral("x' or '1' = '1"));
}

TEST_F(PatientAlerts, AlertsThatCannotBeReadAreTold) {
    desk.expectBox(QStringLiteral("Error reading patient alerts. ") + loseDatabase(), QStringLiteral("Error"));
    show();
}

TEST(AlertForm, EnterAndEscapeCloseIt) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        frmAlert form;
        form.lblalert->setText(QStringLiteral("Call first"));
        form.show();
        QTest::keyClick(&form, key);
        EXPECT_FALSE(form.isVisible());
    }
}

TEST(AlertForm, ALongTextScrollsInsteadOfLeavingTheScreen) {
    frmAlert form;
    form.lblalert->setText(QStringLiteral("Please ask for the co-payment at every visit. ").repeated(80));
    form.show();
    QTest::qWait(0);
    EXPECT_LT(form.height(), form.fontMetrics().lineSpacing() * 30);
    EXPECT_GT(form.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST(AlertForm, AShortTextIsSeenWhole) {
    frmAlert form;
    form.lblalert->setText(QStringLiteral("Balance is due.\nCall the mother first.\nThen the school."));
    form.show();
    QTest::qWait(0);
    EXPECT_EQ(form.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST(AlertForm, ATextThatLooksLikeMarkupIsShownAsItStands) {
    frmAlert form;
    EXPECT_EQ(form.lblalert->textFormat(), Qt::PlainText);
}
