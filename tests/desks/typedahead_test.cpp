#include "tests/desks/deskfront.h"

namespace {

/// A quick person at a program that is busy for a moment, and one who does the same thing again and again.
class QuickPerson : public FrontDesk {
  protected:
    /// Does this while the program is busy, so that all of it comes at once.
    void whileBusy(const std::function<void()>& work) {
        desk->stop();
        work();
        desk->goOn();
    }
    /// A right click, until the menu is there: without a window manager the display may take the focus away again just
    /// after a dialog has closed, and the menu with it.
    void openMenu(const QString& place) {
        const auto isOpen = [this] { return desk->tell("front") == QLatin1String("popup"); };
        for (int tries = 0; tries < 5 && !isOpen(); ++tries) {
            person->click(place, 3);
            for (int polls = 0; polls < 200 && !isOpen(); ++polls)
                ;
        }
        ASSERT_TRUE(isOpen());
    }
    /// Presses Ctrl and the digit until the view is there: the display may give its focus a moment late.
    void goToView(const char* digit, const char* view) {
        const auto isOpen = [&] { return desk->tell("shows", QLatin1String(view)) == QLatin1String("yes"); };
        for (int tries = 0; tries < 5 && !isOpen(); ++tries) {
            person->turnTo("mdisched");
            person->press({QStringLiteral("ctrl+") + QLatin1String(digit)});
            for (int polls = 0; polls < 500 && !isOpen(); ++polls)
                ;
        }
        ASSERT_TRUE(isOpen());
    }
    /// Closes the form in front, under which the main window has to be.
    void closeOnly(const char* form) {
        person->turnTo(form);
        person->press({QStringLiteral("Escape")});
        person->turnTo("mdisched");
    }
};

}  // namespace

TEST_F(QuickPerson, OpensTheSameAppointmentFromItsMenuTenTimes) {
    const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
    person->press({QStringLiteral("F5")});
    for (int round = 1; round <= 10; ++round) {
        openMenu(itemOf(anna));
        person->press({QStringLiteral("Down"), QStringLiteral("Return")});
        closeOnly("frmnore");
    }
}

TEST_F(QuickPerson, OpensTheSameMeetingFromItsMenuTenTimes) {
    connection.Execute(db::Sql(
        "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid, apptid) Values (540, 600, '{}', 'Team', 1, 0)",
        day));
    goToView("5", "frmrooms");
    for (int round = 1; round <= 10; ++round) {
        openMenu(itemOf(QStringLiteral("1")));
        person->press({QStringLiteral("Down"), QStringLiteral("Return")});
        closeOnly("frmRoomAppt");
    }
}

TEST_F(QuickPerson, PressingEnterTwiceOpensOneEditor) {
    const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
    person->press({QStringLiteral("F5")});
    person->click(itemOf(anna));
    whileBusy([this] { person->press({QStringLiteral("Return"), QStringLiteral("Return")}); });
    closeOnly("frmnore");
    awaitView("frmsched");
}

TEST_F(QuickPerson, ADoubleClickBeforeAChangeOfTheViewOpensTheEditorOverItsOwnView) {
    const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
    person->press({QStringLiteral("F5")});
    const QString place = itemOf(anna);
    whileBusy([&] {
        person->doubleClick(place);
        person->press({QStringLiteral("ctrl+2")});
    });
    closeOnly("frmnore");
    EXPECT_EQ(desk->tell("shows", QStringLiteral("frmsched")), QStringLiteral("yes"));
}

TEST_F(QuickPerson, DeletesTheAppointmentThatWasSelectedThen) {
    const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
    const QString bo = add(660, 700, QStringLiteral("Åkesson, Bo"));
    person->press({QStringLiteral("F5")});
    person->click(itemOf(anna));
    whileBusy([this] { person->press({QStringLiteral("Delete"), QStringLiteral("Down")}); });
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("mdisched");
    EXPECT_EQ(times(anna), QStringLiteral("(none)"));
    EXPECT_EQ(times(bo), QStringLiteral("660-700"));
}

// Go clicks a tenth of a second after its letter: the new appointment comes before that or after it, as the machine has
// time. Either way it is for the view that is open when its editor has gone, and never for one that went under it.
TEST_F(QuickPerson, ANewAppointmentAtOnceAfterGoLeavesNoViewUnderItsEditor) {
    connection.Execute("Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)");
    const auto isInFront = [this](const char* window) { return desk->tell("front") == QLatin1String(window); };
    const auto isShown = [this](const char* view) {
        return desk->tell("shows", QLatin1String(view)) == QLatin1String("yes");
    };
    for (int round = 1; round <= 3; ++round) {
        goToView("4", "frmall");
        person->click(at(600 + 60 * round, 2));  // Twice in one place would be a double click.
        whileBusy([this] { person->press({QStringLiteral("alt+g"), QStringLiteral("ctrl+n")}); });
        ASSERT_TRUE(soon([&] { return isInFront("frmnore") || isInFront("box"); }));
        closeOnly(isInFront("frmnore") ? "frmnore" : "box");
        // Where Go comes last, the view changes only now.
        EXPECT_TRUE(soon([&] { return isShown("frmall") != isShown("frmsched"); }));
    }
}
