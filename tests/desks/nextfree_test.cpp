#include "tests/desks/deskfront.h"

namespace {

/// "When is the next free hour?"
class NextFreeAtTheDesk : public FrontDesk {
  protected:
    QString told(const char* widget) { return desk->tell("text", QLatin1String(widget)); }
    void pressStep(const QString& keys) {
        person->press({keys});
        ++steps;
    }
    void clickStep(const QString& place) {
        person->click(place);
        ++steps;
    }
    void doubleClickStep(const QString& place) {
        person->doubleClick(place);
        ++steps;
    }
    QString newest(const char* columns) {
        return value(db::Sql("Select {} from appointments Where nkeyid = {}", db::Raw{QLatin1String(columns)},
                             db::Raw{newestKey()}));
    }

    int steps = 0;
};

}  // namespace

TEST_F(NextFreeAtTheDesk, ByKeyboardACallerIsBookedByOneKeyTheNameAndThreeTimesEnter) {
    pressStep(QStringLiteral("ctrl+shift+n"));
    person->turnTo("frmnextfree");
    person->type(QStringLiteral("o'b"));
    ++steps;
    person->picture("nextfree-typed");
    pressStep(QStringLiteral("Return"));
    EXPECT_TRUE(soon([&] { return desk->tell("focus") == QLatin1String("ctList1"); }));
    person->picture("nextfree");
    pressStep(QStringLiteral("Return"));
    person->turnTo("frmnore");
    person->picture("nextfree-editor");
    EXPECT_EQ(told("txtpatients"), QStringLiteral("O'Brien, Anna"));
    pressStep(QStringLiteral("Return"));
    person->turnTo("mdisched");
    EXPECT_EQ(steps, 5);
    EXPECT_EQ(newest("cappttext"), QStringLiteral("O'Brien, Anna"));
    EXPECT_EQ(newest("patientid"), QStringLiteral("10017"));
    EXPECT_EQ(newest("createduid"), QStringLiteral("REED"));
}

TEST_F(NextFreeAtTheDesk, KeysThatAreTypedAheadBookToo) {
    person->press({QStringLiteral("ctrl+shift+n")});
    person->turnTo("frmnextfree");
    const qint64 before = number(QStringLiteral("Select Count(*) from appointments"));
    person->type(QStringLiteral("o'b"));
    person->press({QStringLiteral("Return"), QStringLiteral("Return")});
    person->turnTo("frmnore");
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments")), before + 1);
}

TEST_F(NextFreeAtTheDesk, ByMouseACallerIsBookedInSixClicks) {
    clickStep(desk->tell("menuPlace", QStringLiteral("mnuAppointments")));
    person->turnTo("popup");
    clickStep(desk->tell("entryPlace", QStringLiteral("mnuANext")));
    person->turnTo("frmnextfree");
    clickStep(desk->tell("widgetPlace", QStringLiteral("cmdPatientList")));
    person->turnTo("frmspatnt");
    ASSERT_TRUE(soon([&] { return told("ctList1").contains(QStringLiteral("O'Brien")); }));
    const qsizetype row = told("ctList1").section(QStringLiteral("O'Brien"), 0, 0).count(QLatin1Char('\n'));
    doubleClickStep(desk->tell("rowPlace", QStringLiteral("ctList1"), QString::number(row)));
    person->turnTo("frmnextfree");
    ASSERT_TRUE(soon([&] { return told("txtpatients") == QStringLiteral("O'Brien, Anna"); }));
    doubleClickStep(desk->tell("rowPlace", QStringLiteral("ctList1"), QStringLiteral("0")));
    person->turnTo("frmnore");
    clickStep(desk->tell("widgetPlace", QStringLiteral("cmdOk")));
    person->turnTo("mdisched");
    EXPECT_EQ(steps, 6);
    EXPECT_EQ(newest("patientid"), QStringLiteral("10017"));
}

TEST_F(NextFreeAtTheDesk, WhatAnotherDeskBooksMeanwhileIsToldByTheEditor) {
    person->press({QStringLiteral("ctrl+shift+n")});
    person->turnTo("frmnextfree");
    person->type(QStringLiteral("o'b"));
    person->press({QStringLiteral("Return"), QStringLiteral("Return")});
    person->turnTo("frmnore");
    for (int ahead = 0; ahead < 7; ++ahead)
        connection.Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Values ('{}', 0, 1440, 'Other desk', 16711681, 'REED')",
            QDate::currentDate().addDays(ahead)));
    person->press({QStringLiteral("Return")});
    person->turnTo("AppointmentConflict");
    EXPECT_TRUE(told("ctList1").contains(QStringLiteral("Other desk")));
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmnore");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments Where patientid = '10017'")), 0);
}
