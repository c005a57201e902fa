#include "search/frmfinda.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "platform/printing/printpreview.h"
#include "tests/search/searchfixture.h"

namespace {

class FindAppointments : public SearchFixture {
  protected:
    static QStringList found(const frmfinda& form) {
        QStringList rows;
        for (int row = 0; row < form.ctList1->RowCount(); ++row)
            rows << form.ctList1->Cells(row).join(u';');
        return rows;
    }
    static void search(frmfinda& form, const char* text) {
        form.txtfind->clear();
        QTest::keyClicks(form.txtfind, QString::fromUtf8(text));
        form.cmdfind->click();
    }
    /// Presses Print and reads the rows of the table, titles first, that the preview holds.
    QList<QStringList> printed(frmfinda& form) {
        QList<QStringList> rows;
        desk.expectForm("frmpreview", [&rows, this](QDialog& preview) {
            document = preview.findChild<PrintPreview*>()->Document();
            const auto& table = std::get<printing::Table>(document.blocks.at(0));
            rows << table.titles;
            for (const QStringList& row : table.rows)
                rows << row;
        });
        form.cmdprint->click();
        return rows;
    }
    void expectNothing() { desk.expectBox(QStringLiteral("No Matching Records."), QStringLiteral("Find")); }

    printing::Document document;  ///< The one printed last.
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
    EXPECT_EQ(form.lblcount->text(), QStringLiteral("2 appointments"));
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

TEST_F(FindAppointments, TextsWithLineEndsAndSemicolonsStandOnOneLineAndPlacesAsTheyAre) {
    run(QStringLiteral(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, clocation, clinicianid) Values ('2026/03/11', 540, 600, 'Jones;"
        "\n"
        "Mary|x', 'a;b', 'REED')"));
    frmfinda form;
    search(form, "Jones");
    EXPECT_EQ(form.ctList1->Cell(0, 1), QStringLiteral("Jones Maryx"));
    EXPECT_EQ(form.ctList1->Cell(0, 5), QStringLiteral("a;b"));
    EXPECT_EQ(printed(form).value(1), (QStringList{"Jones Maryx", "03/11/2026", "9:00 AM", "10:00 AM", "ab", ""}));
}

TEST_F(FindAppointments, WhatWasFoundIsPrintedInATable) {
    book({.text = QStringLiteral("O'Brien | Jones; Mary")});
    book({.text = QStringLiteral("Jones, Jo"), .code = 0xC000, .date = QDate(2026, 3, 12)});
    frmfinda form;
    search(form, "Jones");
    EXPECT_EQ(printed(form),
              (QList<QStringList>{{"Description", "Date", "Start", "End", "Location", "Status"},
                                  {"O'Brien  Jones Mary", "03/11/2026", "9:00 AM", "10:00 AM", "", "Pending"},
                                  {"Jones, Jo", "03/12/2026", "9:00 AM", "10:00 AM", "", "Kept"}}));
    EXPECT_EQ(document.header, QStringLiteral("|Appointments|"));
    EXPECT_EQ(document.footer, QStringLiteral("||Page %d"));
    EXPECT_EQ(std::get<printing::Table>(document.blocks[0]).widths,
              (std::vector<int>{2160, 1300, 1300, 1300, 2800, 1440}));
}

TEST_F(FindAppointments, OnlyTheSelectedLinesArePrintedWhereThatIsChosen) {
    for (const char* text : {"Jones, Ann", "Jones, Bea", "Jones, Cleo"})
        book({.text = QString::fromLatin1(text)});
    frmfinda form;
    search(form, "Jones");
    form.ckselected->setChecked(true);
    form.ctList1->SelectRow(1);
    EXPECT_EQ(printed(form).size(), 2);
    EXPECT_EQ(printed(form)[1][0], QStringLiteral("Jones, Bea"));
    form.ctList1->selectAll();
    EXPECT_EQ(printed(form).size(), 4);
    form.ctList1->SelectRow(-1);
    form.cmdprint->click();
    EXPECT_EQ(form.lblcount->text(), QStringLiteral("Select the appointments to print."));
}

TEST_F(FindAppointments, PrintingIsOfferedOnlyForHits) {
    book({});
    frmfinda form;
    EXPECT_FALSE(form.cmdprint->isEnabled());
    EXPECT_FALSE(form.ckselected->isEnabled());
    search(form, "Jones");
    EXPECT_TRUE(form.cmdprint->isEnabled());
    EXPECT_TRUE(form.ckselected->isEnabled());
    expectNothing();
    search(form, "Nobody");
    EXPECT_FALSE(form.cmdprint->isEnabled());
    EXPECT_FALSE(form.ckselected->isEnabled());
}

TEST_F(FindAppointments, SignsThatStatementsGiveAMeaningAreSearchedForAsTheyStand) {
    const char* const texts[] = {"100% sure", "a_b", "[x]", "back\\slash", "--", "'", "ÄÖ", "?"};
    for (const char* text : texts)
        book({.text = QString::fromUtf8(text)});
    book({.text = QStringLiteral("plain")});
    frmfinda form;
    for (const char* text : {"0%", "a_", "[x", "k\\s", "--", "ÄÖ"}) {
        search(form, text);
        EXPECT_EQ(form.ctList1->RowCount(), 1) << text;
    }
    for (const char* text : {"'", "?", "["}) {
        search(form, text);
        EXPECT_EQ(form.ctList1->RowCount(), 1) << text;
    }
    for (const char* text : {"%", "_"}) {
        expectNothing();
        search(form, text);
    }
}

TEST_F(FindAppointments, PastedTextLosesTheCharactersThatWouldBreakAList) {
    frmfinda form;
    QApplication::clipboard()->setText(QStringLiteral("a;b|c*d\"e"));
    form.txtfind->setFocus();
    form.txtfind->paste();
    EXPECT_EQ(form.txtfind->text(), QStringLiteral("abcde"));
}

TEST_F(FindAppointments, ATextOfTenThousandCharactersFindsNothingAndBreaksNothing) {
    book({});
    frmfinda form;
    form.txtfind->setText(QString(10000, u'\''));
    expectNothing();
    form.cmdfind->click();
}

TEST_F(FindAppointments, AFailureIsTold) {
    frmfinda form;
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error finding appointments. ") + why, QStringLiteral("Error"));
    search(form, "Jones");
}

TEST_F(FindAppointments, NoonIsReadableInBothColumnsOfTime) {
    book({.start = 720, .end = 720});
    frmfinda form;
    search(form, "Jones");
    form.show();
    const int needed = form.ctList1->fontMetrics().horizontalAdvance(QStringLiteral("12:00 Noon"));
    for (const int column : {2, 3})
        EXPECT_GE(form.ctList1->columnWidth(column), needed + 8) << column;
}
