#include "appointments/frmroster.h"

#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include "appointments/frmrecurappt.h"
#include "data/codes.h"
#include "platform/controls/noticebar.h"
#include "session/hiddennames.h"
#include "tests/appointments/groupfixture.h"

using db::Sql;

namespace {

/// Anger every Wednesday at nine from March 4 to April 1, of which the second is today.
class GroupRoster : public GroupFixture {
  protected:
    GroupRoster() {
        desk.setNow(QDateTime(day, QTime(8, 0)));
        Session().ALEnabled = true;
        for (int week = -1; week <= 3; ++week) {
            const int key = groupAppointment();
            run(Sql("Update appointments Set dapptdate = '{}', repeating = 1, repeating_ref = {} Where nkeyid = {}",
                    day.addDays(7 * week), keys.empty() ? key : keys.front(), key));
            if (week > 0)
                run(Sql("Update AppointmentsGroup Set Kept = 0 Where nKeyId = {}", key));
            keys.push_back(key);
        }
    }
    /// Takes Baker out of today's appointment and saves it.
    void takeBakerOut() {
        openGroup(keys[1]);
        clickScheduled("Baker, Bo");
        QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
    }
    /// What the form asks for is answered with this choice.
    void expectRoster(RestScope scope) {
        desk.expectForm("frmroster", [this, scope](QDialog& shown) {
            auto& roster = dynamic_cast<frmroster&>(shown);
            roster.radWhich->button(static_cast<int>(scope))->click();
            listed = listOf(roster);
            told = roster.lblcount->text();
            roster.cmdOk->click();
        });
    }
    static QStringList listOf(const frmroster& form) {
        QStringList rows;
        for (int i = 0; i < form.lstdates->topLevelItemCount(); ++i) {
            const QTreeWidgetItem& row = *form.lstdates->topLevelItem(i);
            rows << row.text(0).mid(4, 5) + QStringLiteral(" | ") + row.text(2);
        }
        return rows;
    }
    /// Who comes on each date, "Abel Baker".
    QStringList dates() {
        QStringList all;
        for (const int key : keys)
            all << members(key)
                       .remove(QStringLiteral("x "))
                       .remove(QStringLiteral(", Ann"))
                       .remove(QStringLiteral(", Bo"));
        return all;
    }

    NoticeBar bar;
    std::vector<int> keys;
    QStringList listed;
    QString told;
};

}  // namespace

TEST_F(GroupRoster, WhoIsTakenOutLeavesThisAndTheFollowingDates) {
    expectRoster(RestScope::Following);
    takeBakerOut();
    EXPECT_EQ(listed, (QStringList{"03/04 | not chosen", "03/18 | takes out Baker, Bo", "03/25 | takes out Baker, Bo",
                                   "04/01 | takes out Baker, Bo"}));
    EXPECT_EQ(told, "3 other dates will be changed");
    EXPECT_EQ(dates(), (QStringList{"Abel k; Baker", "Abel k", "Abel", "Abel", "Abel"}));
    EXPECT_EQ(bar.Texts(), QStringList{"The members of 3 other dates have been changed."});
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from AuditLog Where LogListId = 'Modify Appointment'")),
              4);
}

TEST_F(GroupRoster, PastDatesAreNotTouchedByAllDates) {
    expectRoster(RestScope::All);
    takeBakerOut();
    EXPECT_EQ(listed.front(), "03/04 | stays: is past");
    EXPECT_EQ(dates().front(), "Abel k; Baker");
    EXPECT_EQ(dates().back(), "Abel");
}

TEST_F(GroupRoster, ThisDateOnlyIsWhatEnterChooses) {
    desk.expectForm("frmroster", [this](QDialog& shown) {
        told = dynamic_cast<frmroster&>(shown).lblcount->text();
        QTest::keyClick(&shown, Qt::Key_Return);
    });
    takeBakerOut();
    EXPECT_EQ(told, "No other date will be changed");
    EXPECT_EQ(dates(), (QStringList{"Abel k; Baker", "Abel k", "Abel; Baker", "Abel; Baker", "Abel; Baker"}));
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(GroupRoster, WhoIsAddedComesOnTheDatesOnWhichTheGroupHasThem) {
    run(QStringLiteral("Delete from AppointmentsGroup Where PatientId = 'P2'"));
    run(QStringLiteral("Update GroupMembers Set enddate = '2026/03/25' Where PatientID = 'P2'"));
    run(Sql(
        "Insert Into AppointmentsGroup (nKeyId, GroupId, PatientId, PatientName, Kept) Values({}, {}, 'P2', 'Baker, Bo', 0)",
        keys[2], anger));
    expectRoster(RestScope::Following);
    openGroup(keys[1]);
    pick(QStringLiteral("Anger"));
    clickScheduled("Baker, Bo");
    QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
    EXPECT_EQ(listed, (QStringList{"03/04 | not chosen", "03/18 | stays as it is", "03/25 | adds Baker, Bo",
                                   "04/01 | not in the group then: Baker, Bo"}));
    EXPECT_EQ(dates(), (QStringList{"Abel k", "Abel k; Baker", "Abel; Baker", "Abel; Baker", "Abel"}));
    EXPECT_EQ(
        database.number(Sql("Select GroupId from AppointmentsGroup Where PatientId = 'P2' And nKeyId = {}", keys[3])),
        anger);
}

TEST_F(GroupRoster, WhoHasAttendedAndWhatHasANoteStays) {
    run(Sql("Update AppointmentsGroup Set Kept = 1 Where nKeyId = {} And PatientId = 'P2'", keys[2]));
    run(Sql("Update appointments Set NoteID = 5 Where nkeyid = {}", keys[3]));
    run(Sql("Update appointments Set cappttext = 'Sleep' Where nkeyid = {}", keys[4]));
    const int last = groupAppointment();
    run(Sql("Update appointments Set dapptdate = '2026/04/08', repeating = 1, repeating_ref = {} Where nkeyid = {}",
            keys.front(), last));
    expectRoster(RestScope::All);
    takeBakerOut();
    EXPECT_EQ(listed.mid(1), (QStringList{"03/18 | attended and stays: Baker, Bo", "03/25 | stays: has a session note",
                                          "04/01 | stays: is not this group's", "04/08 | takes out Baker, Bo"}));
    EXPECT_EQ(members(last), "x Abel, Ann k");
    EXPECT_EQ(dates()[2], "Abel; Baker k");
}

TEST_F(GroupRoster, IsNotAskedForWhereNoMemberChangedOrNothingRepeats) {
    openGroup(keys[1]);
    clickKept("Baker, Bo");
    QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
    EXPECT_EQ(members(keys[1]), "x Abel, Ann k; x Baker, Bo k");

    const int single = groupAppointment();
    run(Sql("Update appointments Set dapptdate = '2026/05/01' Where nkeyid = {}", single));
    openGroup(single);
    clickScheduled("Baker, Bo");
    QTest::mouseClick(dialog->cmdOk, Qt::LeftButton);
    EXPECT_EQ(members(single), "x Abel, Ann k");
}

TEST_F(GroupRoster, ADateThatAnotherDeskDeletedOrTookAttendanceOfMeanwhileIsLeft) {
    desk.expectForm("frmroster", [this](QDialog& shown) {
        auto& roster = dynamic_cast<frmroster&>(shown);
        roster.radWhich->button(1)->click();
        run(Sql("Delete from appointments Where nkeyid = {}", keys[2]));
        run(Sql("Delete from AppointmentsGroup Where nKeyId = {}", keys[2]));
        run(Sql("Update AppointmentsGroup Set Kept = 1 Where nKeyId = {}", keys[3]));
        roster.cmdOk->click();
    });
    takeBakerOut();
    EXPECT_EQ(dates(), (QStringList{"Abel k; Baker", "Abel k", "", "Abel k; Baker k", "Abel"}));
    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "The members of 1 other date have been changed. 2 were left as they are, because another desk has changed or deleted them."});
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from AuditLog Where LogListId = 'Modify Appointment'")),
              2)
        << "of today's and of the one that was changed";
}

TEST_F(GroupRoster, AnothersDateStaysWithoutTheRightToAllSchedules) {
    Session().AllProviders = false;
    run(Sql("Update appointments Set clinicianid = 'LANE' Where nkeyid = {}", keys[2]));
    run(Sql("Update appointments Set clinicianid = 'reed' Where nkeyid = {}", keys[3]));
    desk.expectForm("frmroster", [this](QDialog& shown) {
        auto& roster = dynamic_cast<frmroster&>(shown);
        roster.radWhich->button(1)->click();
        listed = listOf(roster);
        run(Sql("Update appointments Set clinicianid = 'LANE' Where nkeyid = {}", keys[4]));
        roster.cmdOk->click();
    });
    takeBakerOut();
    EXPECT_EQ(listed.mid(1), (QStringList{"03/18 | stays: is with another provider", "03/25 | takes out Baker, Bo",
                                          "04/01 | takes out Baker, Bo"}));
    EXPECT_EQ(dates().mid(2), (QStringList{"Abel; Baker", "Abel", "Abel; Baker"}));
}

TEST_F(GroupRoster, ADateThatAnotherDeskGaveToAnotherGroupMeanwhileIsLeft) {
    desk.expectForm("frmroster", [this](QDialog& shown) {
        auto& roster = dynamic_cast<frmroster&>(shown);
        roster.radWhich->button(1)->click();
        run(Sql("Update appointments Set cappttext = 'Sleep' Where nkeyid = {}", keys[3]));
        roster.cmdOk->click();
    });
    takeBakerOut();
    EXPECT_EQ(dates().mid(2), (QStringList{"Abel", "Abel; Baker", "Abel"}));
}

TEST_F(GroupRoster, WithoutTheDatabaseNothingIsWrittenAndTheQuestionStays) {
    desk.expectForm("frmroster", [this](QDialog& shown) {
        auto& roster = dynamic_cast<frmroster&>(shown);
        roster.radWhich->button(1)->click();
        const QString reason = loseDatabase();
        desk.expectBox(QStringLiteral("Error saving group members. ") + reason, QStringLiteral("Error"));
        roster.cmdOk->click();
        EXPECT_EQ(roster.result(), 0);
        Session().Connection.Open(database.connectionText());
        roster.cmdOk->click();
        EXPECT_EQ(roster.result(), QDialog::Accepted);
    });
    takeBakerOut();
    EXPECT_EQ(dates().back(), "Abel");
}

TEST_F(GroupRoster, NamesNobodyWhileNamesAreHidden) {
    desk.expectForm("frmroster", [](QDialog& shown) {
        auto& roster = dynamic_cast<frmroster&>(shown);
        SetNamesHidden(true);
        roster.radWhich->button(1)->click();
        EXPECT_FALSE(listOf(roster).join(u'\n').contains("Baker"));
        EXPECT_FALSE(roster.lblremoved->text().contains("Baker"));
        SetNamesHidden(false);
        EXPECT_TRUE(listOf(roster).join(u'\n').contains("Baker"));
        shown.reject();
    });
    takeBakerOut();
}
