#include "search/frmsavail.h"

#include <QListWidget>
#include <QPushButton>

#include "platform/controls/ctdedit.h"
#include "tests/search/searchfixture.h"

namespace {

class SearchByOpening : public SearchFixture {
  protected:
    static QStringList freeIn(frmsavail& form, int start, int end) {
        form.ctstart->setTime(start);
        form.ctend->setTime(end);
        form.cmdsearch->click();
        QStringList names;
        for (int row = 0; row < form.List1->count(); ++row)
            names << form.List1->item(row)->text();
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
    form.List1->setCurrentRow(0);
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
