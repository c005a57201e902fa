#include "people/frmapttypes.h"

#include <QColorDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "data/codes.h"
#include "people/typelengths.h"
#include "platform/controls/ctlist.h"
#include "tests/people/listfixture.h"

namespace {

class AppointmentTypes : public ListFixture {
  protected:
    AppointmentTypes() {
        type("Intake", 0x00FF10);
        type("Testing", 0x1020FF);
    }
    void type(const char* name, int color) {
        run(db::Sql("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('{}', {})", name, color));
    }
    /// Picks a colour 0xBBGGRR in the colour dialog.
    void pick(frmapttypes& form, int color) {
        desk.expectForm("QColorDialog", [color](QDialog& dialog) {
            static_cast<QColorDialog&>(dialog).setCurrentColor(
                QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF));
            dialog.setResult(QDialog::Accepted);
        });
        form.PnlPickColor->click();
    }
    static void edit(frmapttypes& form, int row) {
        form.fg->SelectRow(row);
        form.cmdedit->click();
    }
};

}  // namespace

TEST(TypeColors, AColorOfAStatusOrKindIsMovedSoThatNoTypeCanBeMistakenForOne) {
    EXPECT_EQ(StoredTypeColor(0xFF0000), 0xFF0002);
    for (const int cancelled : {192, 193, 194})
        EXPECT_EQ(StoredTypeColor(cancelled), 195);
    for (const int reserved : {49344, 49152, 0x80FFFF, 0xC0C000, 0xFFFF80, 0xFF0001, 0xFF80FF, 0xFFFFFF, 0x7878650})
        EXPECT_EQ(StoredTypeColor(reserved), reserved + 1);
    EXPECT_EQ(StoredTypeColor(0x123456), 0x123456);
    EXPECT_EQ(StoredTypeColor(195), 195);
}

TEST_F(AppointmentTypes, AreListedByNameWithTheirColor) {
    const frmapttypes form;
    ASSERT_EQ(form.fg->RowCount(), 2);
    EXPECT_EQ(form.fg->Cells(0).join(u';'), QStringLiteral("#10ff00;Intake;"));
    EXPECT_FALSE(form.txttype->isEnabled());
    EXPECT_FALSE(form.cmdsave->isEnabled());
}

TEST_F(AppointmentTypes, ANewTypeIsStoredWithItsColor) {
    frmapttypes form;
    form.cmdadd->click();
    QTest::keyClicks(form.txttype, QStringLiteral("Couple's hour"));
    pick(form, 0x112233);
    form.cmdsave->click();
    EXPECT_EQ(database.number(
                  QStringLiteral("Select aptcategorycolor from AptCategories Where aptcategory = 'Couple''s hour'")),
              0x112233);
    EXPECT_EQ(form.fg->RowCount(), 3);
}

TEST_F(AppointmentTypes, ATypeKeepsTheLengthOfItsVisits) {
    frmapttypes form;
    edit(form, 0);
    EXPECT_EQ(form.txtlength->text(), QStringLiteral("(none)"));
    form.txtlength->setValue(50);
    EXPECT_TRUE(form.IsChanged());
    form.cmdsave->click();
    EXPECT_EQ(form.fg->Cell(0, 3), QStringLiteral("50 mins."));
    EXPECT_EQ(TypeLengths().size(), 1);

    form.cmdadd->click();
    EXPECT_EQ(form.txtlength->value(), 0) << "a new type has none";
    QTest::keyClicks(form.txttype, QStringLiteral("Couple"));
    pick(form, 0x112233);
    form.txtlength->setValue(90);
    form.cmdsave->click();
    EXPECT_EQ(form.fg->Cell(0, 3), QStringLiteral("90 mins."));
    EXPECT_EQ(form.fg->Cell(1, 3), QStringLiteral("50 mins."));

    edit(form, 1);
    form.txtlength->setValue(0);
    form.cmdsave->click();
    EXPECT_EQ(form.fg->Cell(1, 3), QString());
    EXPECT_EQ(TypeLengths().size(), 1);
}

TEST_F(AppointmentTypes, ALengthThatCouldNotBeStoredIsTold) {
    frmapttypes form;
    edit(form, 0);
    form.txtlength->setValue(50);
    (void)database.refuse("Insert", "User_Preferences");
    desk.expectBox(QStringLiteral("The type was saved, but its length was not. Edit the type to try again."),
                   QStringLiteral("Solvane"));
    form.cmdsave->click();
    EXPECT_EQ(form.fg->Cell(0, 3), QString());
}

TEST_F(AppointmentTypes, PureWhiteIsStoredAsAColorThatNoPickerShows) {
    frmapttypes form;
    form.cmdadd->click();
    QTest::keyClicks(form.txttype, QStringLiteral("White"));
    pick(form, 0xFFFFFF);
    form.cmdsave->click();
    EXPECT_EQ(database.number(QStringLiteral("Select aptcategorycolor from AptCategories Where aptcategory = 'White'")),
              0x1000000);
}

TEST_F(AppointmentTypes, WithoutAColorNothingIsSaved) {
    frmapttypes form;
    form.cmdadd->click();
    QTest::keyClicks(form.txttype, QStringLiteral("Plain"));
    desk.expectBox(QStringLiteral("Assign a color code for this appointment type."), QStringLiteral("Solvane"));
    form.cmdsave->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from AptCategories")), 2);
    EXPECT_EQ(form.txttype->text(), QStringLiteral("Plain"));
}

TEST_F(AppointmentTypes, RenamingAloneAsksNothingAndTouchesNoAppointment) {
    run(QStringLiteral("Insert Into appointments (cappttext, Appointment_Type) Values ('x', 65296)"));
    frmapttypes form;
    edit(form, 0);
    form.txttype->setText(QStringLiteral("First hour"));
    form.cmdsave->click();
    EXPECT_EQ(form.fg->ItemText(0), QStringLiteral("First hour"));
    EXPECT_EQ(database.number(QStringLiteral("Select Appointment_Type from appointments")), 65296);
}

TEST_F(AppointmentTypes, ANewColorIsGivenToAllAppointmentsOfTheTypeAfterAYes) {
    run(QStringLiteral("Insert Into appointments (cappttext, Appointment_Type) Values ('x', 65296)"));
    frmapttypes form;
    edit(form, 0);
    pick(form, 0x445566);
    desk.expectBox(
        QStringLiteral(
            "You are changing the color of an existing Appointment Type. The color will be changed for all previous appointments. Continue?"),
        QStringLiteral("Solvane"), Answer::Yes);
    form.cmdsave->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Appointment_Type from appointments")), 0x445566);
    EXPECT_EQ(
        database.number(QStringLiteral("Select aptcategorycolor from AptCategories Where aptcategory = 'Intake'")),
        0x445566);
}

TEST_F(AppointmentTypes, AnsweringNoLeavesTypeAndAppointmentsUnchanged) {
    run(QStringLiteral("Insert Into appointments (cappttext, Appointment_Type) Values ('x', 65296)"));
    frmapttypes form;
    edit(form, 0);
    pick(form, 0x445566);
    desk.expectBox(
        QStringLiteral(
            "You are changing the color of an existing Appointment Type. The color will be changed for all previous appointments. Continue?"),
        QStringLiteral("Solvane"), Answer::No);
    form.cmdsave->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Appointment_Type from appointments")), 65296);
    EXPECT_EQ(
        database.number(QStringLiteral("Select aptcategorycolor from AptCategories Where aptcategory = 'Intake'")),
        65296);
    EXPECT_TRUE(form.cmdsave->isEnabled());
}

TEST_F(AppointmentTypes, TwoTypesCannotHaveOneColor) {
    frmapttypes form;
    edit(form, 0);
    pick(form, 0x1020FF);
    desk.expectBox(QStringLiteral("Another appointment type has this color. Pick a different one."),
                   QStringLiteral("Solvane"));
    form.cmdsave->click();
    EXPECT_EQ(
        database.number(QStringLiteral("Select aptcategorycolor from AptCategories Where aptcategory = 'Intake'")),
        65296);
}

TEST_F(AppointmentTypes, ATypeInUseCannotBeDeleted) {
    run(QStringLiteral("Insert Into appointments (cappttext, Appointment_Type) Values ('x', 65296)"));
    frmapttypes form;
    form.fg->SelectRow(0);
    desk.expectBox(QStringLiteral("Unable to delete. This type and color is being used for existing appointments."),
                   QStringLiteral("Solvane"));
    form.cmddelete->click();
    EXPECT_EQ(form.fg->RowCount(), 2);
}

TEST_F(AppointmentTypes, AnUnusedTypeIsDeletedAfterAYes) {
    frmapttypes form;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        form.fg->SelectRow(0);
        desk.expectBox(QStringLiteral("Are you sure you want to delete this appointment type?"),
                       QStringLiteral("Delete"), answer);
        form.cmddelete->click();
    }
    EXPECT_EQ(form.fg->RowCount(), 1);
}

TEST_F(AppointmentTypes, WhoMayOnlyReadIsTurnedAway) {
    Session().ScreenAccess = 1;
    frmapttypes form;
    form.fg->SelectRow(0);
    for (QPushButton* button : {form.cmdadd, form.cmdedit, form.cmddelete}) {
        desk.expectBox(QStringLiteral("You do not have permissions for this function."), QStringLiteral("Solvane"));
        button->click();
    }
    EXPECT_FALSE(form.txttype->isEnabled());
    EXPECT_EQ(form.fg->RowCount(), 2);
}

TEST_F(AppointmentTypes, EscapeFirstGivesUpTheEditAndThenCloses) {
    frmapttypes form;
    form.show();
    edit(form, 0);
    QTest::keyClick(form.txttype, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.txttype->isEnabled());
    QTest::keyClick(form.fg, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(AppointmentTypes, AFailedSaveKeepsWhatWasTyped) {
    frmapttypes form;
    form.cmdadd->click();
    QTest::keyClicks(form.txttype, QStringLiteral("Plain"));
    pick(form, 0x445566);
    const QString why = refuseWrites("AptCategories");
    desk.expectBox(QStringLiteral("Error saving appointment type. ") + why, QStringLiteral("Error"));
    form.cmdsave->click();
    EXPECT_EQ(form.txttype->text(), QStringLiteral("Plain"));
}

TEST_F(AppointmentTypes, ANameWithAnApostropheIsStoredAsItStands) {
    frmapttypes form;
    edit(form, 0);
    form.txttype->setText(QStringLiteral("Children's; a|b *\"x\""));
    form.cmdsave->click();
    EXPECT_EQ(database.text(QStringLiteral("Select aptcategory from AptCategories Where aptcategorycolor = 65296")),
              QStringLiteral("Children's; a|b *\"x\""));
}

TEST_F(AppointmentTypes, ANameOrColorThatWasChangedIsNotThrownAwayUnasked) {
    frmapttypes form;
    form.show();
    edit(form, 0);
    QTest::keyClicks(form.txttype, QStringLiteral("First visit"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Appointment Types"),
                   Answer::No);
    QTest::keyClick(form.txttype, Qt::Key_Escape);
    EXPECT_EQ(form.txttype->text(), QStringLiteral("First visit"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Appointment Types"),
                   Answer::Yes);
    QTest::keyClick(form.txttype, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.txttype->isEnabled());

    edit(form, 0);
    pick(form, 0x445566);
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Appointment Types"),
                   Answer::No);
    form.close();
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.txttype->isEnabled());
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Appointment Types"),
                   Answer::Yes);
    form.close();
    EXPECT_FALSE(form.isVisible());
}
