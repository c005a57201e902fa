#include <QFile>

#include "tests/desks/deskfront.h"

namespace {

/// The slip of an appointment, by mouse and keyboard.
class SlipsByHand : public FrontDesk {
  protected:
    SlipsByHand() {
        connection.Execute(QStringLiteral(
            "Insert Into report_headers (header, [default]) Values ('Larkspur Counseling Associates', 1)"));
        anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
        connection.Execute(QStringLiteral("Update appointments Set CLOCATION = 'Main Office'"));
        connection.Execute(db::Sql(
            "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid, apptid) Values (540, 600, '{}', 'O''Brien, Anna', 1, {})",
            value(QStringLiteral("Select dapptdate from appointments")), db::Raw{anna}));
        slot = value(QStringLiteral("Select nkeyid from roomschedule"));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([this] { return desk->tell("items").contains(anna); }));
    }
    /// File > Print Appointment Slip by its letters.
    void chooseSlip() {
        person->press({QStringLiteral("alt+f")});
        person->turnTo("popup");
        person->press({QStringLiteral("l")});
        person->turnTo("frmpappt");
    }
    QString shown(const char* field) { return desk->tell("text", QLatin1String(field)); }
    /// Closes the slip by Escape, where the view is to be in front again.
    void closeSlip() {
        person->press({QStringLiteral("Escape")});
        person->turnTo("mdisched");
    }

    QString anna;
    QString slot;
};

}  // namespace

TEST_F(SlipsByHand, FromTheMenuOfTheDayByKeysTheSlipIsSavedAsAFile) {
    person->click(itemOf(anna));
    chooseSlip();
    person->picture("slip");
    EXPECT_EQ(shown("txtafor"), QStringLiteral("O'Brien, Anna"));
    EXPECT_EQ(shown("txtlocation"), QStringLiteral("Main Office"));
    person->press({QStringLiteral("alt+n"), QStringLiteral("ctrl+a")});
    person->type(QStringLiteral("Can't come? Call us"));
    person->press({QStringLiteral("alt+s"), QStringLiteral("alt+p")});
    person->turnTo("frmpreview");
    person->picture("slip-paper");
    person->press({QStringLiteral("ctrl+s")});
    const QString file = folder.filePath(QStringLiteral("slip.pdf"));
    person->chooseFile(file);
    person->turnTo("frmpreview");
    EXPECT_TRUE(QFile::exists(file));
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmpappt");
    closeSlip();
    EXPECT_EQ(value(QStringLiteral("Select UP_PD_Value from User_Preferences Where UP_Pref_Detail = 'Notice'")),
              QStringLiteral("Can't come? Call us"));

    chooseSlip();
    EXPECT_EQ(shown("txtnotice"), QStringLiteral("Can't come? Call us"));
    closeSlip();
}

TEST_F(SlipsByHand, FromThePopupOfTheAppointmentByMouseTwice) {
    for (int round = 1; round <= 2; ++round) {
        person->click(itemOf(anna), 3);
        person->turnTo("popup");
        person->click(desk->tell("entryPlace", QStringLiteral("mnuFPrintA")));
        person->turnTo("frmpappt");
        EXPECT_EQ(shown("txtafor"), QStringLiteral("O'Brien, Anna"));
        person->click(desk->tell("widgetPlace", QStringLiteral("cmdprint")));
        person->turnTo("frmpreview");
        person->press({QStringLiteral("Escape")});
        person->turnTo("frmpappt");
        person->click(desk->tell("widgetPlace", QStringLiteral("cmdclose")));
        person->turnTo("mdisched");
    }
}

TEST_F(SlipsByHand, FromTheRoomsByKeysAndByMouse) {
    person->press({QStringLiteral("ctrl+5")});
    awaitView("frmrooms");
    person->click(itemOf(slot));
    chooseSlip();
    EXPECT_EQ(shown("txtlocation"), QStringLiteral("Main Office, Blue room"));
    closeSlip();
    person->click(itemOf(slot), 3);
    person->turnTo("popup");
    person->click(desk->tell("entryPlace", QStringLiteral("mnuFPrintA")));
    person->turnTo("frmpappt");
    person->picture("slip-room");
    closeSlip();
}
