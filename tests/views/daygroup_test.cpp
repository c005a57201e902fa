#include <QPushButton>

#include "appointments/frmgrptx.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "session/session.h"
#include "tests/views/dayhand.h"

/// A group of two patients on REED's day.
class DayGroup : public DayHand {
  protected:
    DayGroup() {
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        run("Insert Into provider_info (id, prov_lastname) Values('REED', 'Reed')");
        run("Insert Into Groups (GroupName, Leader, activestatus) Values('Anger', 'REED', 1)");
        for (const char* patient : {"'P1', 'Abel', 'Ann'", "'P2', 'Baker', 'Bo'"})
            run(QStringLiteral("Insert Into patient_info (id, last_name, first_name) Values(%1)")
                    .arg(QLatin1String(patient)));
        for (const char* patient : {"P1", "P2"})
            run(QStringLiteral("Insert Into GroupMembers (GroupID, PatientID, startDate) Values(1, '%1', '2026/01/01')")
                    .arg(QLatin1String(patient)));
    }

    void expectDialog(std::function<void(frmgrptx&)> act) {
        desk.expectForm("frmgrptx", [act = std::move(act)](QDialog& form) { act(dynamic_cast<frmgrptx&>(form)); });
    }
    static void pickAnger(frmgrptx& form) {
        form.cbogroup->SetListIndex(0);
        Q_EMIT form.cbogroup->Click(0);
    }
    [[nodiscard]] qint64 members() {
        return database_.number(QStringLiteral("Select Count(*) from AppointmentsGroup"));
    }
    qint64 addGroup() {
        const qint64 key = add(anAppointment("Anger").status(ncolor::Group).at(9, 0).until(10, 0));
        run(QStringLiteral(
                "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept, GroupId) Values(%1, 'P1', 'Abel, Ann', 0, 1)")
                .arg(key));
        return key;
    }
};

TEST_F(DayGroup, ANewGroupTakesTheSelectedTimeAndStandsSelectedOnTheDay) {
    openByHand();
    mouseDrag(calendar().CellRect(1, 840).center(), calendar().CellRect(1, 885).center());
    ASSERT_TRUE(view_->SelectedTime());
    const SelectedSlot slot = *view_->SelectedTime();
    expectDialog([slot](frmgrptx& form) {
        EXPECT_EQ(form.ctstart->Time(), slot.start);
        EXPECT_EQ(form.ctend->Time(), slot.end);
        EXPECT_EQ(form.ctedate->Date(), slot.date);
        pickAnger(form);
        form.cmdOk->click();
    });

    command("mnuASGroup").trigger();

    EXPECT_EQ(itemTexts(), QStringList{"Anger"});
    EXPECT_EQ(members(), 2);
    ASSERT_TRUE(view_->SelectedItem());
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anger");
}

TEST_F(DayGroup, WithoutASelectedTimeNoGroupIsMade) {
    openByHand();
    view_->DropSelection();
    desk.expectBox("No Appointment Time is Currently Selected", "Warning");

    command("mnuASGroup").trigger();
}

TEST_F(DayGroup, EnterOnAGroupOpensItsAttendance) {
    addGroup();
    openByHand();
    select("Anger");
    expectDialog([](frmgrptx& form) {
        EXPECT_EQ(form.windowTitle(), "Edit Group Appointment");
        ASSERT_EQ(form.ctList1->RowCount(), 1);
        EXPECT_EQ(form.ctList1->Cell(0, 2), "Abel, Ann");
        form.cmdkept->click();
        form.cmdOk->click();
    });

    key(Qt::Key_Return);

    EXPECT_EQ(database_.number(QStringLiteral("Select Kept from AppointmentsGroup")), 1);
    EXPECT_EQ(item("Anger").ItemColor, ncolor::Group);
}

TEST_F(DayGroup, AGroupThatAnotherDeskDeletedIsTold) {
    const qint64 key = addGroup();
    openByHand();
    select("Anger");
    otherDeskDeletes(key);
    desk.expectBox("Appointment not found in database. It may have been deleted by another user.",
                   "Appointment not found");

    this->key(Qt::Key_Return);

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayGroup, WhoMayOnlyReadMakesAndOpensNone) {
    Session().ScreenAccess = 1;
    addGroup();
    openByHand();
    select("Anger");

    key(Qt::Key_Return);
    mouseDrag(calendar().CellRect(1, 840).center(), calendar().CellRect(1, 885).center());
    command("mnuASGroup").trigger();

    EXPECT_EQ(itemTexts(), QStringList{"Anger"});
}

TEST_F(DayGroup, AGroupIsMovedAndKeepsItsMembers) {
    const qint64 key = addGroup();
    openByHand();

    moveTo("Anger", 660);

    EXPECT_EQ(stored(key, "nStartTime"), "660");
    EXPECT_EQ(members(), 1);
}

TEST_F(DayGroup, TheGroupIsSavedThatWasOpenedWhateverBecomesOfTheViewUnderIt) {
    const qint64 key = addGroup();
    const qint64 other = add(anAppointment("Other").at(11, 0).until(12, 0).status(ncolor::Group));
    openByHand();
    select("Anger");
    expectDialog([&](frmgrptx& form) {
        select("Other");
        view_->Reload();
        form.ctstart->setTime(555);
        form.cmdOk->click();
    });
    this->key(Qt::Key_Return);
    EXPECT_EQ(stored(key, "nStartTime"), "555");
    EXPECT_EQ(stored(other, "nStartTime"), "660");

    select("Anger");
    expectDialog([&](frmgrptx& form) {
        otherDeskDeletes(key);
        view_->Reload();
        select("Other");
        form.ctend->setTime(615);
        form.cmdOk->click();
    });
    this->key(Qt::Key_Return);
    EXPECT_EQ(itemTexts(), (QStringList{"Anger", "Other"}));
    EXPECT_EQ(stored(item("Anger").ItemKey.toLongLong(), "nEndTime"), "615");
    EXPECT_EQ(stored(other, "nEndTime"), "720");
}
