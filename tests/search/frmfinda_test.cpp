#include "search/frmfinda.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "tests/search/searchfixture.h"

namespace {

class FindAppointments : public SearchFixture {
  protected:
    static QStringList found(const frmfinda& form) {
        QStringList rows;
        for (int row = 0; row < form.ctList1->RowCount(); ++row)
            rows << form.ctList1->RowText(row);
        return rows;
    }
    static void search(frmfinda& form, const char* text) {
        form.txtfind->clear();
        QTest::keyClicks(form.txtfind, QString::fromUtf8(text));
        form.cmdfind->click();
    }
    void expectNothing() { desk.expectBox(QStringLiteral("No Matching Records."), QStringLiteral("Find")); }
};

}  // namespace

TEST_F(FindAppointments, OneLetterFindsOnlyTextsThatBeginWithItTwoFindThemAnywhere) {
    book({.text = QStringLiteral("Jones, Mary")});
    book({.text = QStringLiteral("Major, Jo")});
    frmfinda form;
    search(form, "J");
    EXPECT_EQ(form.ctList1->RowCount(), 1);
    search(form, "jo");
    EXPECT_EQ(form.ctList1->RowCount(), 2);
}

TEST_F(FindAppointments, AnApostropheFindsNamesLikeOBrien) {
    book({.text = QStringLiteral("O'Brien, Anna")});
    frmfinda form;
    search(form, "o'b");
    EXPECT_EQ(found(form), QStringList{QStringLiteral("O'Brien, Anna;03/11/2026;9:00 AM;10:00 AM;;Pending")});
}

TEST_F(FindAppointments, CoversTheCurrentProviderAloneAtAllDatesTheEarliestFirst) {
    book({.date = QDate(2030, 1, 2)});
    book({.date = QDate(2020, 1, 2)});
    book({.provider = QStringLiteral("OBRIEN")});
    frmfinda form;
    search(form, "Jones");
    ASSERT_EQ(form.ctList1->RowCount(), 2);
    EXPECT_EQ(form.ctList1->Cell(0, 2), QStringLiteral("01/02/2020"));
    EXPECT_EQ(form.lblcount->text(), QStringLiteral("2 appointment(s)"));
}

TEST_F(FindAppointments, EachStatusHasItsWordAndTheStoredTentativeHasNone) {
    const std::pair<int, const char*> words[] = {{0xC0C0C0, "Tentative"}, {0xFF0001, "Pending"}, {0xC000, "Kept"},
                                                 {192, "Missed"},         {193, "Pt Cancelled"}, {194, "Th Cancelled"},
                                                 {0xFF0000, ""},          {0x7878650, ""},       {0xFFFFFF, ""}};
    for (const auto& [code, word] : words) {
        run(QStringLiteral("Delete from appointments"));
        book({.code = code});
        frmfinda form;
        search(form, "Jones");
        EXPECT_EQ(form.ctList1->Cell(0, 6), QLatin1String(word)) << code;
    }
}

TEST_F(FindAppointments, TheCharactersThatWouldBreakAListHaveNoEffect) {
    frmfinda form;
    QTest::keyClicks(form.txtfind, QStringLiteral("a;|*\"b"));
    EXPECT_EQ(form.txtfind->text(), QStringLiteral("ab"));
}

TEST_F(FindAppointments, CanBeStartedOnlyWithAText) {
    frmfinda form;
    EXPECT_FALSE(form.cmdfind->isEnabled());
    EXPECT_FALSE(form.cmdgoto->isEnabled());
    QTest::keyClicks(form.txtfind, QStringLiteral("x"));
    EXPECT_TRUE(form.cmdfind->isEnabled());
}

TEST_F(FindAppointments, NoHitIsToldAndClearsWhatWasFoundBefore) {
    book({});
    frmfinda form;
    form.show();
    search(form, "Jones");
    EXPECT_TRUE(form.cmdgoto->isEnabled());
    expectNothing();
    search(form, "Nobody");
    EXPECT_EQ(form.ctList1->RowCount(), 0);
    EXPECT_FALSE(form.cmdgoto->isEnabled());
    EXPECT_EQ(form.txtfind->selectedText(), QStringLiteral("Nobody"));
}

TEST_F(FindAppointments, GoingToAHitTellsItsDateAndStart) {
    book({.start = 810, .end = 860, .date = QDate(2026, 4, 2)});
    frmfinda form;
    search(form, "Jones");
    form.cmdgoto->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    ASSERT_TRUE(form.Found().has_value());
    EXPECT_EQ(form.Found()->date, QDate(2026, 4, 2));
    EXPECT_EQ(form.Found()->start, 810);
}

TEST_F(FindAppointments, AHitThatHasVanishedLeavesTheFormOpenAndSaysSo) {
    book({});
    frmfinda form;
    search(form, "Jones");
    run(QStringLiteral("Delete from appointments"));
    form.cmdgoto->click();
    EXPECT_EQ(form.result(), 0);
    EXPECT_FALSE(form.Found().has_value());
    EXPECT_TRUE(form.lblcount->text().contains(QStringLiteral("not there any more")));
}

TEST_F(FindAppointments, TextsWithLineEndsAndSemicolonsStandOnOneLine) {
    run(QStringLiteral(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, clocation, clinicianid) Values ('2026/03/11', 540, 600, 'Jones;"
        "\n"
        "Mary|x', 'a;b', 'REED')"));
    frmfinda form;
    search(form, "Jones");
    EXPECT_EQ(form.ctList1->Cell(0, 1), QStringLiteral("Jones Maryx"));
    EXPECT_EQ(form.ctList1->Cell(0, 5), QStringLiteral("ab"));
}

TEST_F(FindAppointments, AFailureIsTold) {
    frmfinda form;
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error finding appointments. ") + why, QStringLiteral("Error"));
    search(form, "Jones");
}
