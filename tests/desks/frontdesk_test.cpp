#include "tests/desks/deskfront.h"

TEST_F(FrontDesk, TheWholeDayGoesByMouseAndKeyboard) {
    // Book a patient found by typing.
    person->doubleClick(at(540));
    person->turnTo("frmnore");
    person->picture("editor-empty");
    person->type(QStringLiteral("o'b"));
    person->picture("editor-lookup");
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    const QString anna = newestKey();
    EXPECT_EQ(value(QStringLiteral("Select cappttext from appointments")), QStringLiteral("O'Brien, Anna"));
    EXPECT_EQ(times(anna).section(QLatin1Char('-'), 0, 0), QStringLiteral("540"));

    // Book another in her way, and be warned.
    person->click(at(660));
    person->press({QStringLiteral("Return")});
    person->turnTo("frmnore");
    // The tool that plays the keyboard must bend its layout for this letter, which a busy program may read too late.
    desk->tell("type", QStringLiteral("txtpatients"), QStringLiteral("Åk"));
    person->press({QStringLiteral("alt+s")});
    desk->tell("replace", QStringLiteral("ctstart"), QStringLiteral("9"));
    desk->tell("replace", QStringLiteral("ctend"), QStringLiteral("9:45"));
    person->picture("editor-filled");
    person->press({QStringLiteral("Return")});
    person->turnTo("AppointmentConflict");
    person->picture("conflict");
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmnore");
    desk->tell("replace", QStringLiteral("ctstart"), QStringLiteral("11"));
    desk->tell("replace", QStringLiteral("ctend"), QStringLiteral("11:45"));
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    const QString bo = newestKey();
    EXPECT_EQ(times(bo), QStringLiteral("660-705"));

    // Drag the one, edit the other.
    person->drag(itemOf(anna), at(840));
    EXPECT_TRUE(soon([&] { return startOf(anna) > 700; }));
    person->doubleClick(itemOf(bo));
    person->turnTo("frmnore");
    desk->tell("replace", QStringLiteral("txtnotes"), QStringLiteral("bring the card"));
    person->picture("editor-edit");
    person->press({QStringLiteral("ctrl+Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(value(db::Sql("Select CapptNote from appointments Where nkeyid = {}", db::Raw{bo})),
              QStringLiteral("90834  Psychotherapy|bring the card"));

    // Check in, keep, miss, cancel.
    person->click(itemOf(bo));
    person->press({QStringLiteral("ctrl+i")});
    person->turnTo("frmarrivalTime");
    person->picture("arrival");
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(status(bo), 0xFFFFFF);
    person->press({QStringLiteral("ctrl+k")});
    EXPECT_TRUE(soon([&] { return status(bo) == 0xC000; }));
    person->click(itemOf(anna), 3);
    person->turnTo("popup");
    person->picture("popup");
    person->press({QStringLiteral("m")});
    person->turnTo("mdisched");
    EXPECT_EQ(status(anna), 0xC0);
    person->picture("day");

    // Delete.
    person->click(itemOf(anna));
    person->press({QStringLiteral("Delete")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("mdisched");
    EXPECT_EQ(times(anna), QStringLiteral("(none)"));
}

TEST_F(FrontDesk, APatientWhoIsNewIsAddedAndBooked) {
    person->doubleClick(at(600));
    person->turnTo("frmnore");
    person->type(QStringLiteral("Novak, Eva"));
    person->press({QStringLiteral("Return")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("frmnewpat");
    person->picture("newpatient");
    desk->tell("type", QStringLiteral("txtdob"), QStringLiteral("5/6/1990"));
    desk->tell("choose", QStringLiteral("cboprovider"), QStringLiteral("Reed"));
    desk->tell("choose", QStringLiteral("cbosex"), QStringLiteral("Female"));
    person->press({QStringLiteral("alt+o")});
    person->turnTo("frmnore");
    EXPECT_EQ(desk->tell("text", QStringLiteral("txtpatients")), QStringLiteral("Novak, Eva"));
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(value(QStringLiteral("Select cappttext from appointments")), QStringLiteral("Novak, Eva"));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from incident_hx")), 2);
}

TEST_F(FrontDesk, TheOtherKindsAreBookedFromTheirMenus) {
    struct Kind {
        const char* keys;
        const char* box;
        const char* text;
        const char* picture;
    };
    int hour = 9;
    for (const Kind& kind : {Kind{"ctrl+shift+e", "cboevents", "Staff meeting", "editor-event"},
                             Kind{"ctrl+shift+u", "cboavail", "Lunch", "editor-unavailable"},
                             Kind{"ctrl+shift+t", "cbocats", "Intake", "editor-type"}}) {
        person->click(at(60 * hour++));
        person->press({QLatin1String(kind.keys)});
        person->turnTo("frmnore");
        person->type(QString::fromLatin1(kind.text).left(2));
        EXPECT_EQ(desk->tell("text", QLatin1String(kind.box)), QLatin1String(kind.text));
        person->picture(kind.picture);
        person->press({QStringLiteral("Return")});
        person->turnTo("mdisched");
        EXPECT_EQ(value(db::Sql("Select cappttext from appointments Where nkeyid = {}", db::Raw{newestKey()})),
                  QLatin1String(kind.text));
    }
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments Where ncolor in (16777088, 16744703, 8438015)")),
              3);
}
