#include <QFile>

#include "tests/desks/desknotes.h"

namespace {

class MissedNotes : public NoteDesk {
  protected:
    /// Draws a signature on the pad of the open note and signs with it.
    void signOnPad() {
        person->press({QStringLiteral("alt+d")});
        person->turnTo("frmesign");
        const QStringList middle = desk->tell("widgetPlace", QStringLiteral("SigPlus1")).split(QLatin1Char(' '));
        const auto beside = [&](int right, int down) {
            return QStringLiteral("%1 %2").arg(middle[0].toInt() + right).arg(middle[1].toInt() + down);
        };
        person->drag(beside(-80, 20), beside(-20, -30));
        person->drag(beside(0, -20), beside(60, 20));
        person->picture("missed-pad");
        person->press({QStringLiteral("alt+s")});
        person->turnTo("frmmsdApt");
    }
};

}  // namespace

TEST_F(MissedNotes, AMissedVisitIsNotedAndSignedByPassword) {
    const QString key = missed(540);
    openNote();
    person->picture("missed-new");
    EXPECT_EQ(shown("lblpatient"), QStringLiteral("O'Brien, Anna"));
    EXPECT_EQ(shown("lbltype"), QStringLiteral("Missed"));
    person->type(QStringLiteral("No call; left a message"));
    person->press({QStringLiteral("alt+w")});
    person->turnTo("frmesign");
    person->type(QStringLiteral("reed"));
    person->press({QStringLiteral("Tab")});
    person->type(QStringLiteral("secret"));
    person->picture("missed-password");
    person->press({QStringLiteral("Return")});
    person->turnTo("frmmsdApt");
    EXPECT_TRUE(shown("pnlSig").startsWith(SignedLine)) << shown("pnlSig").toStdString();
    person->picture("missed-signed");
    closeNote();
    EXPECT_EQ(reason(), QStringLiteral("No call; left a message"));
    EXPECT_EQ(desk->tell("noteIcon", key), QStringLiteral("yes"));
    EXPECT_EQ(audited("Add"), 1);
}

TEST_F(MissedNotes, ASignatureOnThePadHoldsUntilTheNoteIsEditedAndIsGivenAgain) {
    missed(600);
    openNote();
    person->type(QStringLiteral("Car broke down"));
    signOnPad();
    EXPECT_TRUE(shown("lblsignstatus").startsWith(SignedLine));
    person->picture("missed-drawn");
    closeNote();

    // A look alone changes nothing.
    openNote();
    EXPECT_TRUE(shown("lblsignstatus").startsWith(SignedLine));
    closeNote();
    EXPECT_EQ(audited("Modify"), 0);

    openNote();
    person->press({QStringLiteral("ctrl+End")});
    person->type(QStringLiteral(" again"));
    closeNote();
    EXPECT_EQ(reason(), QStringLiteral("Car broke down again"));
    EXPECT_EQ(audited("Modify"), 1);

    openNote();
    EXPECT_EQ(shown("lblsignstatus"), QStringLiteral("Signature is invalid! Cause: Note modified."));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from SessionSignatures")), 0);
    person->picture("missed-invalid");
    signOnPad();
    EXPECT_TRUE(shown("lblsignstatus").startsWith(SignedLine));

    person->press({QStringLiteral("ctrl+p")});
    person->turnTo("frmpreview");
    person->picture("missed-print");
    person->press({QStringLiteral("ctrl+s")});
    const QString file = folder.filePath(QStringLiteral("note.pdf"));
    person->chooseFile(file);
    person->turnTo("frmpreview");
    EXPECT_TRUE(QFile::exists(file));
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmmsdApt");
    EXPECT_EQ(audited("Print"), 1);
    closeNote();
    EXPECT_EQ(audited("View"), 3);
}

TEST_F(MissedNotes, EscapeAsksBeforeANoteIsLost) {
    const QString key = missed(660);
    openNote();
    person->type(QStringLiteral("Ill"));
    person->press({QStringLiteral("Escape")});
    EXPECT_EQ(desk->answer("No"), QStringLiteral("Close without saving what you have changed?"));
    person->turnTo("frmmsdApt");
    EXPECT_EQ(desk->tell("text", QStringLiteral("txtreason")), QStringLiteral("Ill"));
    person->press({QStringLiteral("Escape")});
    EXPECT_EQ(desk->answer("Yes"), QStringLiteral("Close without saving what you have changed?"));
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from sessions")), 0);
    EXPECT_EQ(desk->tell("noteIcon", key), QStringLiteral("not"));
}
