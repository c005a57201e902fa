#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QPushButton>

#include "appointments/frmnore.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "platform/controls/noticebar.h"
#include "session/session.h"
#include "tests/views/dayhand.h"

namespace {

constexpr char noTime[] = "No Appointment Time is Currently Selected";
constexpr char changedByOthers[] =
    "Error loading appointment. Row cannot be located for updating. Some values may have been changed since it was last read.";
constexpr char notFound[] = "Appointment not found in database. It may have been deleted by another user.";

const frmnore& theEditor(QDialog& form) {
    return static_cast<const frmnore&>(form);
}

}  // namespace

/// What opens the editor, and what the editor is told.
class DayEdit : public DayHand {
  protected:
    /// The editor must open for a row.
    void expectEditor(int kind, qint64 key, std::function<void()> meanwhile = {}) {
        desk.expectForm("frmnore", [kind, key, meanwhile](QDialog& form) {
            EXPECT_EQ(theEditor(form).Request().ApptKind, kind);
            EXPECT_FALSE(theEditor(form).Request().IsNewAppt);
            EXPECT_EQ(theEditor(form).Request().CurrentApptKey, key);
            if (meanwhile)
                meanwhile();
        });
    }
    /// The editor must open for a new entry at the time.
    void expectNew(int kind, int start, int end, std::function<void()> meanwhile = {}) {
        desk.expectForm("frmnore", [=](QDialog& form) {
            EXPECT_EQ(theEditor(form).Request().ApptKind, kind);
            EXPECT_TRUE(theEditor(form).Request().IsNewAppt);
            EXPECT_EQ(theEditor(form).ctstart->Time(), start);
            EXPECT_EQ(theEditor(form).ctend->Time(), end);
            EXPECT_EQ(theEditor(form).ctedate->Date(), QDate(2026, 3, 11));
            if (meanwhile)
                meanwhile();
            form.done(QDialog::Accepted);
        });
    }
    [[nodiscard]] QMenu& popup() { return *view_->findChild<QMenu*>(QStringLiteral("popupNew")); }
    [[nodiscard]] QPoint freeAt(int minute) {
        const QRect cell = calendar().CellRect(1, minute);
        return {cell.right() - 2, cell.top() + 1};
    }
};

TEST_F(DayEdit, ADoubleClickOpensTheAppointment) {
    const qint64 key = add(anAppointment("Anna"));
    openByHand();
    expectEditor(1, key);

    doubleClick(rectOf("Anna").center());
}

TEST_F(DayEdit, WhatCouldNotBeSavedIsOpenedAgainFromTheBarWithAllThatWasTyped) {
    NoticeBar bar;
    const qint64 key = add(anAppointment("Meeting").at(9, 0).until(10, 0).status(ncolor::Activity));
    openByHand();
    select("Meeting");
    const QString note = QStringLiteral("Bring O'Brien's file");
    desk.expectForm("frmnore", [&](QDialog& form) {
        theEditor(form).txtnotes->setPlainText(note);
        theEditor(form).cmdOk->click();
    });
    desk.expectBox("Error saving appointment. " + database_.refuse("Update", "appointments"), "Error");
    this->key(Qt::Key_Return);
    EXPECT_EQ(bar.Texts(), QStringList(QStringLiteral("Not saved: appointment on 03/11/2026 at 9:00 AM")));

    database_.allow("Update", "appointments");
    calendar().clearSelection();
    desk.expectForm("frmnore", [&](QDialog& form) {
        EXPECT_EQ(theEditor(form).txtnotes->toPlainText(), note);
        theEditor(form).cmdOk->click();
    });
    bar.findChild<QPushButton*>(QStringLiteral("cmdNotice"))->click();
    settle();
    EXPECT_EQ(database_.text(QStringLiteral("Select CapptNote from appointments Where nkeyid = %1").arg(key)),
              QStringLiteral("|") + note);
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_EQ(main.asked, QStringList(QStringLiteral("cycledate 2")));
}

TEST_F(DayEdit, EnterAndTheCommandOpenTheSelectedAppointment) {
    const qint64 key = add(anAppointment("Anna"));
    openByHand();
    select("Anna");
    expectEditor(1, key);
    expectEditor(1, key);

    this->key(Qt::Key_Return);
    command("mnuAEdit").trigger();
}

TEST_F(DayEdit, TheKindFollowsTheRow) {
    openByHand();
    const auto opensAs = [this](const AppointmentRow& row, int kind) {
        const qint64 key = add(row);
        day().LoadDayView();
        select(row.text.toUtf8());
        expectEditor(kind, key);
        this->key(Qt::Key_Return);
    };

    for (const int code : ncolor::PatientRows)
        opensAs(anAppointment(QByteArray::number(code)).status(code), 1);
    opensAs(anAppointment("Event").status(ncolor::Activity), 2);
    opensAs(anAppointment("Away").status(ncolor::Unavailable), 3);
    opensAs(anAppointment("Slot").with("appttype", "4").status(0x123456), 4);
    opensAs(anAppointment("Slot in the groups' colour").with("appttype", "4").status(ncolor::Group), 4);
}

TEST_F(DayEdit, TheEditorSavesTheRowThatItWasOpenedOnWhateverBecomesOfTheViewUnderIt) {
    run("Insert Into Events (Event) Values('Meeting')");
    const std::function<void()> happenings[] = {[this] { select("Other"); }, [this] { view_->Reload(); },
                                                [this] { calendar().clearSelection(); },
                                                [this] {
                                                    main.SetDate(main.Date().addDays(1));
                                                    view_->Reload();
                                                }};
    const qint64 key = add(anAppointment("Meeting").at(9, 0).until(10, 0).status(ncolor::Activity));
    const qint64 other = add(anAppointment("Other").at(11, 0).until(12, 0).status(ncolor::Activity));
    openByHand();
    int note = 0;
    for (const auto& happens : happenings) {
        main.SetDate(QDate(2026, 3, 11));
        view_->Reload();
        select("Meeting");
        desk.expectForm("frmnore", [&](QDialog& form) {
            happens();
            theEditor(form).txtnotes->setPlainText(QString::number(++note));
            theEditor(form).cmdOk->click();
        });
        command("mnuAEdit").trigger();
        EXPECT_EQ(stored(key, "CapptNote"), QStringLiteral("|%1").arg(note));
        EXPECT_EQ(stored(other, "cappttext") + stored(other, "CapptNote"), "Other");
    }
}

TEST_F(DayEdit, ARowThatAnotherDeskDeletesUnderTheEditorIsAddedAgainAndNoOtherIsWritten) {
    run("Insert Into Events (Event) Values('Meeting')");
    const qint64 key = add(anAppointment("Meeting").at(9, 0).until(10, 0).status(ncolor::Activity));
    const qint64 other = add(anAppointment("Other").at(11, 0).until(12, 0).status(ncolor::Activity));
    openByHand();
    select("Meeting");
    desk.expectForm("frmnore", [&](QDialog& form) {
        otherDeskDeletes(key);
        view_->Reload();
        select("Other");
        theEditor(form).txtnotes->setPlainText(QStringLiteral("mine"));
        theEditor(form).cmdOk->click();
    });

    command("mnuAEdit").trigger();

    EXPECT_EQ(itemTexts(), (QStringList{"Meeting", "Other"}));
    EXPECT_EQ(stored(item("Meeting").ItemKey.toLongLong(), "CapptNote"), "|mine");
    EXPECT_EQ(stored(other, "CapptNote"), "");
}

TEST_F(DayEdit, TheRowTellsTheKindNotTheItemThatAnotherDeskHasOvertaken) {
    const qint64 key = add(anAppointment("Slot").with("appttype", "4").status(0x123456));
    openByHand();
    otherDeskSets(key, QStringLiteral("appttype = 0, ncolor = 16711680"));
    select("Slot");
    expectEditor(1, key);

    this->key(Qt::Key_Return);
}

TEST_F(DayEdit, WhatTheEditorChangedShowsAndTheSelectionAndThePlaceStay) {
    const qint64 key = add(anAppointment("Anna").at(14, 0));
    openByHand();
    view_->resize(1000, 350);
    calendar().setTopTime(780);
    settle();
    const int top = yOf(840);
    select("Anna");
    expectEditor(1, key, [this, key] { otherDeskSets(key, QStringLiteral("cappttext = 'Anna Maria'")); });

    this->key(Qt::Key_Return);

    EXPECT_EQ(itemTexts(), QStringList{"Anna Maria"});
    EXPECT_EQ(calendar().SelectedItem(), 1);
    EXPECT_EQ(info().first(), "Appointment;Anna Maria");
    EXPECT_EQ(yOf(840), top);
}

TEST_F(DayEdit, WhatIsBeingTypedIsStoredBeforeTheEditorOpens) {
    const qint64 key = add(anAppointment("Event").status(ncolor::Activity));
    openByHand();
    beginTyping("Event", QStringLiteral("Meeting"));
    expectEditor(2, key, [this, key] { EXPECT_EQ(stored(key, "cappttext"), "Meeting"); });

    command("mnuAEdit").trigger();
}

TEST_F(DayEdit, ARowThatAnotherDeskDeletedIsToldAndLeavesTheDay) {
    const qint64 key = add(anAppointment("Anna"));
    openByHand();
    otherDeskDeletes(key);
    desk.expectBox(notFound, "Appointment not found");

    doubleClick(rectOf("Anna").center());

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayEdit, ARowThatAnotherDeskPutOnAnotherDayIsToldAndNotOpened) {
    const qint64 key = add(anAppointment("Anna"));
    openByHand();
    otherDeskSets(key, QStringLiteral("dapptdate = '2026/03/18'"));
    desk.expectBox(changedByOthers, "Error");

    doubleClick(rectOf("Anna").center());

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayEdit, ARowThatAnotherDeskGaveToAnotherProviderIsToldAndNotOpened) {
    const qint64 key = add(anAppointment("Anna"));
    openByHand();
    otherDeskSets(key, QStringLiteral("clinicianid = 'BAKER'"));
    desk.expectBox(changedByOthers, "Error");

    doubleClick(rectOf("Anna").center());

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayEdit, ARowThatAnotherDeskMovedOnTheSameDayOpens) {
    const qint64 key = add(anAppointment("Anna"));
    openByHand();
    otherDeskSets(key, QStringLiteral("nStartTime = 600, nEndTime = 650"));
    expectEditor(1, key);

    doubleClick(rectOf("Anna").center());

    EXPECT_EQ(item("Anna").ItemStart, 600);
}

TEST_F(DayEdit, ARowThatCannotBeReadIsTold) {
    add(anAppointment("Anna"));
    openByHand();
    select("Anna");
    Session().Connection.Close();
    desk.expectBox(
        "Error loading appointment. The connection cannot be used to perform this operation. It is either closed or invalid in this context.",
        "Error");

    this->key(Qt::Key_Return);

    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}

TEST_F(DayEdit, TheHolidayBannerIsNeverEdited) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Once', '2026/03/11', 0)");
    openByHand();
    select("Once");

    EXPECT_FALSE(command("mnuAEdit").isEnabled());
    this->key(Qt::Key_Return);
    doubleClick(rectOf("Once").center());

    EXPECT_EQ(itemTexts(), QStringList{"Once"});
}

TEST_F(DayEdit, TheEditCommandFollowsTheSelection) {
    add(anAppointment("Anna"));
    openByHand();
    EXPECT_FALSE(command("mnuAEdit").isEnabled());
    EXPECT_EQ(command("mnuAEdit").toolTip(), "Select an appointment first.");

    select("Anna");
    EXPECT_TRUE(command("mnuAEdit").isEnabled());

    calendar().selectRange(1, 600, 630);
    EXPECT_FALSE(command("mnuAEdit").isEnabled());
}

TEST_F(DayEdit, EachNewCommandOpensTheEditorForItsKindAtTheSelectedTime) {
    openByHand();
    const std::pair<const char*, int> commands[] = {
        {"mnuANPat", 1}, {"mnuANEvent", 2}, {"mnuANAvail", 3}, {"mnuASType", 4}};
    for (const auto& [name, kind] : commands) {
        calendar().selectRange(1, 600, 645);
        expectNew(kind, 600, 645);
        command(name).trigger();
    }
}

TEST_F(DayEdit, WithoutASelectedTimeEachNewCommandSaysSo) {
    add(anAppointment("Anna"));
    openByHand();
    select("Anna");

    for (const char* name : {"mnuANPat", "mnuANEvent", "mnuANAvail", "mnuASType"}) {
        desk.expectBox(noTime, "Warning");
        command(name).trigger();
    }
}

TEST_F(DayEdit, ADoubleClickOnEmptyTimeBooksAPatientThere) {
    openByHand();
    expectNew(1, 600, 615);

    doubleClick(freeAt(600));
}

TEST_F(DayEdit, ADoubleClickOnADrawnRangeBooksAllOfIt) {
    openByHand();
    mouseDrag(freeAt(600), freeAt(645));
    expectNew(1, 600, 660);

    doubleClick(freeAt(630));
}

TEST_F(DayEdit, EnterInsertAndTheToolbarBookAPatientAtTheSelectedTime) {
    openByHand();
    const std::function<void()> ways[] = {[this] { this->key(Qt::Key_Return); }, [this] { this->key(Qt::Key_Insert); },
                                          [this] { view_->AddAppointment(); }};
    EXPECT_TRUE(view_->CanAdd());
    for (const auto& way : ways) {
        view_->activateWindow();  // The editor that was closed before took the keyboard.
        calendar().setFocus();
        settle();
        calendar().selectRange(1, 600, 630);
        expectNew(1, 600, 630);
        way();
    }
}

TEST_F(DayEdit, WhatWasBookedShowsAndStandsSelected) {
    add(anAppointment("Anna"));
    openByHand();
    calendar().selectRange(1, 600, 630);
    expectNew(1, 600, 630, [this] { add(anAppointment("Ben").at(10, 0)); });

    this->key(Qt::Key_Return);

    EXPECT_EQ(itemTexts(), (QStringList{"Anna", "Ben"}));
    EXPECT_EQ(info().first(), "Appointment;Ben");
}

TEST_F(DayEdit, WhereAnotherDeskBookedMeanwhileNothingIsSelected) {
    openByHand();
    calendar().selectRange(1, 600, 630);
    expectNew(1, 600, 630, [this] {
        add(anAppointment("Ben").at(10, 0));
        add(anAppointment("Of the other desk").at(11, 0));
    });

    this->key(Qt::Key_Return);

    EXPECT_EQ(calendar().SelectedItem(), 0);
}

TEST_F(DayEdit, ANewEntryCanBeMadeOnAHoliday) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Once', '2026/03/11', 0)");
    openByHand();
    expectNew(1, 600, 615);

    doubleClick(freeAt(600));
}

TEST_F(DayEdit, TheRightMouseOnEmptyTimeOffersWhatCanBeNew) {
    openByHand();

    rightClick(freeAt(600));

    ASSERT_TRUE(popup().isVisible());
    QStringList names;
    for (const QAction* action : popup().actions())
        names << action->objectName();
    EXPECT_EQ(names, (QStringList{"mnuANPat", "mnuASGroup", "mnuANEvent", "mnuASType", "mnuANAvail", "mnuAWaitHour"}));
    EXPECT_EQ(calendar().SelStart(), 600);
}

TEST_F(DayEdit, ChoosingInThePopupBooksAtTheTimeUnderThePointer) {
    openByHand();
    rightClick(freeAt(600));
    expectNew(3, 600, 615);

    popup().setActiveAction(&command("mnuANAvail"));
    QTest::keyClick(&popup(), Qt::Key_Return);
    settle();

    EXPECT_FALSE(popup().isVisible());
}

TEST_F(DayEdit, TheMenuKeyOnASelectedTimeOffersTheSame) {
    openByHand();
    calendar().selectRange(1, 600, 630);

    this->key(Qt::Key_Menu);

    EXPECT_TRUE(popup().isVisible());
}

TEST_F(DayEdit, OnAnItemThePopupOfEmptyTimeStaysAway) {
    add(anAppointment("Anna"));
    openByHand();

    rightClick(rectOf("Anna").center());

    EXPECT_FALSE(popup().isVisible());
}

TEST_F(DayEdit, ANewEntryThatIsGivenUpLeavesNothingBehind) {
    openByHand();
    calendar().selectRange(1, 600, 630);
    desk.expectForm("frmnore", [](QDialog& form) { form.reject(); });

    this->key(Qt::Key_Return);

    EXPECT_FALSE(view_->SelectedTime());
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayEdit, ANewEntryThatIsOpenedAgainAndGivenUpLeavesNothingBehind) {
    NoticeBar bar;
    openByHand();
    calendar().selectRange(1, 600, 630);
    desk.expectForm("frmnore", [&](QDialog& form) {
        theEditor(form).cboavail->SetText(QStringLiteral("Lunch"));
        theEditor(form).cmdOk->click();
    });
    desk.expectBox("Item is not on the list. Do you want to add it?", "Item Not Found", Answer::No);
    desk.expectBox("Error saving appointment. " + database_.refuse("Insert", "appointments"), "Error");
    command("mnuANAvail").trigger();
    EXPECT_TRUE(view_->SelectedTime());
    desk.expectForm("frmnore", [](QDialog& form) { form.reject(); });

    bar.findChild<QPushButton*>(QStringLiteral("cmdNotice"))->click();
    settle();

    EXPECT_FALSE(view_->SelectedTime());
    EXPECT_EQ(main.asked, QStringList(QStringLiteral("cycledate 2")));
}

/// A user who may only read.
class DayReadOnly : public DayEdit {
  protected:
    DayReadOnly() { Session().ScreenAccess = 1; }
};

TEST_F(DayReadOnly, NothingOpensTheEditor) {
    add(anAppointment("Anna"));
    openByHand();

    doubleClick(rectOf("Anna").center());
    this->key(Qt::Key_Return);
    doubleClick(freeAt(600));
    this->key(Qt::Key_Return);
    this->key(Qt::Key_Insert);
    view_->AddAppointment();

    EXPECT_FALSE(view_->CanAdd());
    EXPECT_FALSE(command("mnuAEdit").isEnabled());
}

TEST_F(DayReadOnly, EmptyTimeHasNoPopup) {
    openByHand();

    rightClick(freeAt(600));

    EXPECT_FALSE(popup().isVisible());
}

TEST_F(DayReadOnly, AnAppointmentCanStillBeLookedAt) {
    add(anAppointment("Anna"));
    openByHand();

    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, rectOf("Anna").center());
    settle();

    EXPECT_EQ(info().first(), "Appointment;Anna");
}
