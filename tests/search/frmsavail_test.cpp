#include "search/frmsavail.h"

#include <QAbstractItemModel>
#include <QPushButton>

#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "tests/search/searchfixture.h"

namespace {

class SearchByOpening : public SearchFixture {
  protected:
    static QStringList freeIn(frmsavail& form, int start, int end) {
        form.ctstart->setTime(start);
        form.ctend->setTime(end);
        form.cmdsearch->click();
        QStringList names;
        for (int row = 0; row < form.List1->RowCount(); ++row)
            names << form.List1->Cell(row, 1);
        return names;
    }
    const QStringList both{QStringLiteral("O'Brien"), QStringLiteral("Reed")};
    const QStringList onlyOBrien{QStringLiteral("O'Brien")};
};

}  // namespace

TEST_F(SearchByOpening, ABookingThatEndsWhereTheWindowBeginsLeavesTheProviderFree) {
    book({});
    frmsavail form;
    EXPECT_EQ(freeIn(form, 600, 660), both);
    EXPECT_EQ(freeIn(form, 599, 660), onlyOBrien);
    EXPECT_EQ(freeIn(form, 480, 540), both);
    EXPECT_EQ(freeIn(form, 570, 571), onlyOBrien);
}

TEST_F(SearchByOpening, WhateverIsBookedMakesTheProviderBusy) {
    for (const int code : {0xC0, 0xC1, 0xFFFF80, 0xFF80FF}) {
        run(QStringLiteral("Delete from appointments"));
        book({.code = code});
        frmsavail form;
        EXPECT_EQ(freeIn(form, 550, 560), onlyOBrien) << code;
    }
    run(QStringLiteral("Delete from appointments"));
    book({.kind = 4});
    frmsavail form;
    EXPECT_EQ(freeIn(form, 550, 560), onlyOBrien);
}

TEST_F(SearchByOpening, AProviderWithWhoseIdABusyOnesBeginsIsTakenAsBusy) {
    provider("REE", "Ree");
    provider("REEDX", "Reedx");
    book({});
    frmsavail form;
    EXPECT_EQ(freeIn(form, 550, 560), (QStringList{QStringLiteral("O'Brien"), QStringLiteral("Reedx")}));
}

TEST_F(SearchByOpening, AnArchivedProviderIsNeverListed) {
    provider("GONE", "Gone", 1);
    frmsavail form;
    EXPECT_EQ(freeIn(form, 550, 560), both);
}

TEST_F(SearchByOpening, WhoAttendsASharedActivityIsListedWithTheActivityBesideTheName) {
    share(book({.start = 720, .end = 780, .text = QStringLiteral("Staff Meeting"), .provider = QStringLiteral("~EVT")}),
          "Reed");
    share(book({.start = 750, .end = 810, .text = QStringLiteral("Training"), .provider = QStringLiteral("~EVT")}),
          "REED");
    frmsavail form;
    EXPECT_EQ(freeIn(form, 730, 760), both);
    EXPECT_EQ(form.List1->Cell(0, 3), QString());
    EXPECT_EQ(form.List1->Cell(1, 3), QStringLiteral("in Staff Meeting 12:00 - 1:00, in Training 12:30 - 1:30"));
    freeIn(form, 780, 840);
    EXPECT_EQ(form.List1->Cell(1, 3), QStringLiteral("in Training 12:30 - 1:30"));
    form.ctdate->setDate(day.addDays(1));
    freeIn(form, 730, 760);
    EXPECT_EQ(form.List1->Cell(1, 3), QString());
}

TEST_F(SearchByOpening, InTwentyFourHoursTheActivityIsToldInThemToo) {
    Session().MilitaryTime = true;
    share(
        book({.start = 720, .end = 780, .text = QStringLiteral("Staff; Meeting"), .provider = QStringLiteral("~EVT")}),
        "REED");
    frmsavail form;
    freeIn(form, 730, 760);
    EXPECT_EQ(form.List1->Cell(1, 3), QStringLiteral("in Staff; Meeting 12:00 - 13:00"));
}

TEST_F(SearchByOpening, StartsOnTodayWithEmptyTimes) {
    const frmsavail form;
    EXPECT_EQ(form.ctdate->Date(), day);
    EXPECT_TRUE(form.ctstart->IsEmpty());
    EXPECT_TRUE(form.ctend->IsEmpty());
    EXPECT_FALSE(form.JumpDate().isValid());
}

TEST_F(SearchByOpening, TellsTheFirstFieldThatIsMissing) {
    frmsavail form;
    const auto refused = [&](const char* text) {
        desk.expectBox(QLatin1String(text), QStringLiteral("Missing Data"));
        form.cmdsearch->click();
    };
    form.ctdate->setText(QStringLiteral("2/30/2026"));
    refused("Enter a valid date.");
    form.ctdate->setDate(day);
    refused("Enter a start time");
    form.ctstart->setTime(600);
    refused("Enter a start time");
    form.ctend->setTime(600);
    refused("End time must be later than start time");
}

TEST_F(SearchByOpening, GoingToAProviderTakesThemAndTheDate) {
    frmsavail form;
    freeIn(form, 550, 560);
    EXPECT_FALSE(form.cmdgoto->isEnabled());
    form.List1->SelectRow(0);
    form.cmdgoto->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(Session().ProviderId, QStringLiteral("OBRIEN"));
    EXPECT_EQ(Session().ProviderName, QStringLiteral("O'Brien"));
    EXPECT_EQ(form.JumpDate(), day);
}

TEST_F(SearchByOpening, AFailureIsTold) {
    frmsavail form;
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error searching availability. ") + why, QStringLiteral("Error"));
    EXPECT_TRUE(freeIn(form, 550, 560).isEmpty());
}

TEST_F(SearchByOpening, MarkupInANameIsShownAsItStandsInOneLine) {
    provider("<b>X</b>", "<i>Slanted</i>\nline");
    frmsavail form;
    const int row = static_cast<int>(freeIn(form, 550, 560).indexOf(QStringLiteral("<i>Slanted</i>\nline")));
    ASSERT_GE(row, 0);
    const QAbstractItemModel& list = *form.List1->model();
    EXPECT_EQ(list.index(row, 0).data().toString(), QStringLiteral("<i>Slanted</i> line"));
    EXPECT_EQ(list.index(row, 1).data().toString(), QStringLiteral("<b>X</b>"));
}
