#include "appointments/appointmentconflict.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "appointments/frmeconflict.h"
#include "platform/controls/ctlist.h"

namespace {

class ConflictDialog : public testing::Test {
  protected:
    ConflictDialog() {
        form.ctList1->AddRow({QStringLiteral("3/11/2026"), QStringLiteral("9:00 AM"), QStringLiteral("10:00 AM"),
                              QStringLiteral("Jones, Mary"), QStringLiteral("Reed")});
        form.ctList1->SetItemText(0, QStringLiteral("60 minutes."));
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    AppointmentConflict form;
};

}  // namespace

TEST_F(ConflictDialog, NamesItsColumnsAndSaysWhatCanBeDone) {
    QStringList headers;
    for (int column = 1; column <= form.ctList1->ColumnCount(); ++column)
        headers << form.ctList1->Header(column);
    EXPECT_EQ(headers, (QStringList{QStringLiteral("Date"), QStringLiteral("Start"), QStringLiteral("End"),
                                    QStringLiteral("Apt."), QStringLiteral("Provider")}));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Appointment Conflict"));
    EXPECT_EQ(
        form.lblmessage->text(),
        QStringLiteral(
            "The appointment being scheduled conflicts with an existing appointment(s) listed below. You can accept the conflict or change the date and/or time of the new appointment."));
}

TEST_F(ConflictDialog, BeginsAtTheFirstConflictAndTellsItsLength) {
    EXPECT_EQ(form.ctList1->SelectedRow(), 0);
    EXPECT_EQ(form.lbllength->text(), QStringLiteral("Jones, Mary: 60 minutes."));
}

TEST_F(ConflictDialog, AcceptLeavesYes) {
    form.cmdaccept->click();
    EXPECT_EQ(form.tag, QStringLiteral("Y"));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ConflictDialog, RescheduleLeavesNo) {
    form.cmdreschedule->click();
    EXPECT_EQ(form.tag, QStringLiteral("N"));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ConflictDialog, EscapeIsRescheduling) {
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(form.tag, QStringLiteral("N"));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ConflictDialog, EnterBooksNothingByAccident) {
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_EQ(form.tag, QStringLiteral("N"));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ConflictDialog, CanBeAcceptedFromTheKeyboardAlone) {
    QTest::keyClick(&form, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.isVisible(); }));  // A key presses a button for a moment.
    EXPECT_EQ(form.tag, QStringLiteral("Y"));
}

TEST_F(ConflictDialog, TheListIsReachedByItsHeadingsLetter) {
    QTest::keyClick(&form, Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(form.ctList1->hasFocus());
}

TEST(ProviderConflicts, ListsTheProvidersUntilItIsClosed) {
    frmeConflict form;
    form.List1->addItems({QStringLiteral("Reed"), QStringLiteral("O'Brien")});
    form.show();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Appointment Conflict"));
    EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lblmessage"))->text(),
              QStringLiteral("The following providers have conflict on the selected Date and Time:"));
    EXPECT_EQ(form.cmdreschedule->text(), QStringLiteral("&Close"));
    form.cmdreschedule->click();
    EXPECT_FALSE(form.isVisible());
}
