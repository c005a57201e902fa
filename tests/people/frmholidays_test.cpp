#include "people/frmholidays.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "data/holidays.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "tests/people/listfixture.h"

namespace {

class Holidays : public ListFixture {
  protected:
    static void add(frmholidays& form, const QString& name, const QString& date, bool yearly = false) {
        form.txtholiday->setText(name);
        form.ctDateCDrop->setText(date);
        form.ckRepeat->setChecked(yearly);
        form.cmdadd->click();
    }
    static QStringList rowsOf(const frmholidays& form) {
        QStringList rows;
        for (int row = 0; row < form.ctList1->RowCount(); ++row)
            rows << form.ctList1->Cells(row).join(u';');
        return rows;
    }
};

}  // namespace

TEST_F(Holidays, AreListedTheLatestFirstWithAMarkForThoseThatRecur) {
    frmholidays form;
    add(form, QStringLiteral("New Year's Day"), QStringLiteral("1/1/2026"), true);
    add(form, QStringLiteral("Inventory"), QStringLiteral("3/20/2026"));
    EXPECT_EQ(rowsOf(form),
              (QStringList{QStringLiteral("Inventory;03/20/2026"), QStringLiteral("New Year's Day;01/01/2026;Y")}));
    EXPECT_EQ(form.txtholiday->text(), QString());
    EXPECT_TRUE(form.ctDateCDrop->IsEmpty());
    EXPECT_FALSE(form.ckRepeat->isChecked());
}

TEST_F(Holidays, CanBeAddedOnlyWithAName) {
    frmholidays form;
    EXPECT_FALSE(form.cmdadd->isEnabled());
    QTest::keyClicks(form.txtholiday, QStringLiteral("X"));
    EXPECT_TRUE(form.cmdadd->isEnabled());
}

TEST_F(Holidays, AnImpossibleDateIsRefused) {
    frmholidays form;
    desk.expectBox(QStringLiteral("Enter a valid date."), QStringLiteral("Missing Data"));
    add(form, QStringLiteral("Leap day"), QStringLiteral("2/30/2026"));
    EXPECT_EQ(form.ctList1->RowCount(), 0);
    EXPECT_EQ(form.txtholiday->text(), QStringLiteral("Leap day"));
}

TEST_F(Holidays, TheSameHolidayIsNotAddedTwice) {
    frmholidays form;
    add(form, QStringLiteral("Founders' Day"), QStringLiteral("3/20/2026"));
    desk.expectBox(QStringLiteral("Item is already on list."), QStringLiteral("Duplicate Item"));
    add(form, QStringLiteral("founders' day"), QStringLiteral("3/20/2026"));
    EXPECT_EQ(form.ctList1->RowCount(), 1);
}

TEST_F(Holidays, OneThatRepeatsYearlyHoldsInEveryYear) {
    frmholidays form;
    add(form, QStringLiteral("New Year's Day"), QStringLiteral("1/1/2026"), true);
    EXPECT_EQ(HolidayOn(Session().Connection, QDate(2031, 1, 1)), QStringLiteral("New Year's Day"));
    EXPECT_EQ(HolidayOn(Session().Connection, QDate(2031, 1, 2)), std::nullopt);
}

TEST_F(Holidays, TheTwentyNinthOfFebruaryRecursInLeapYears) {
    frmholidays form;
    add(form, QStringLiteral("Leap day"), QStringLiteral("2/29/2028"), true);
    EXPECT_EQ(HolidayOn(Session().Connection, QDate(2032, 2, 29)), QStringLiteral("Leap day"));
    EXPECT_EQ(HolidayOn(Session().Connection, QDate(2031, 2, 28)), std::nullopt);
}

TEST_F(Holidays, RemovingTakesTheSelectedOne) {
    frmholidays form;
    add(form, QStringLiteral("One"), QStringLiteral("1/1/2026"));
    add(form, QStringLiteral("Two"), QStringLiteral("1/2/2026"));
    EXPECT_FALSE(form.cmdremove->isEnabled());
    form.ctList1->SelectRow(0);
    form.cmdremove->click();
    EXPECT_EQ(rowsOf(form), QStringList{QStringLiteral("One;01/01/2026")});
}

TEST_F(Holidays, AFailureTellsWhatFailed) {
    frmholidays form;
    add(form, QStringLiteral("One"), QStringLiteral("1/1/2026"));
    form.ctList1->SelectRow(0);
    const QString why = refuseWrites("Holidays");
    desk.expectBox(QStringLiteral("Error deleting holiday. ") + why, QStringLiteral("Database Error"));
    form.cmdremove->click();
    EXPECT_EQ(form.ctList1->RowCount(), 1);
    desk.expectBox(QStringLiteral("Error adding holiday. ") + why, QStringLiteral("Database Error"));
    add(form, QStringLiteral("Two"), QStringLiteral("1/2/2026"));
    EXPECT_EQ(form.txtholiday->text(), QStringLiteral("Two"));
}

TEST_F(Holidays, EveryCharacterOfANameIsKeptOnItsOwnRow) {
    frmholidays form;
    const QString name = QStringLiteral("St. Brigid's; a|b *\"x\"");
    add(form, name, QStringLiteral("2/1/2026"));
    EXPECT_EQ(database.text(QStringLiteral("Select Holiday from Holidays")), name);
    ASSERT_EQ(form.ctList1->RowCount(), 1);
    EXPECT_EQ(form.ctList1->ItemText(0), name);
    EXPECT_EQ(form.ctList1->Cell(0, 2), QStringLiteral("02/01/2026"));
}

TEST_F(Holidays, ANameOfFiveHundredCharactersIsCutWhereTheDatabaseWouldRefuseIt) {
    frmholidays form;
    QTest::keyClicks(form.txtholiday, QString(500, u'x'));
    form.ctDateCDrop->setText(QStringLiteral("2/1/2026"));
    form.cmdadd->click();
    EXPECT_EQ(database.text(QStringLiteral("Select Holiday from Holidays")).size(), 100);
}

TEST_F(Holidays, TheTwentyNinthOfFebruaryOfAYearWithoutOneIsRefused) {
    frmholidays form;
    desk.expectBox(QStringLiteral("Enter a valid date."), QStringLiteral("Missing Data"));
    add(form, QStringLiteral("Leap day"), QStringLiteral("2/29/2026"), true);
    EXPECT_EQ(form.ctList1->RowCount(), 0);
}

TEST_F(Holidays, ANameThatWasTypedIsNotThrownAwayUnasked) {
    frmholidays form;
    form.show();
    add(form, QStringLiteral("Inventory"), QStringLiteral("3/20/2026"));
    form.txtholiday->setText(QStringLiteral("Founders' Day"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Holidays"),
                   Answer::No);
    QTest::keyClick(form.txtholiday, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    form.txtholiday->clear();
    QTest::keyClick(form.txtholiday, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}
