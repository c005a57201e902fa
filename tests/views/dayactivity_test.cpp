#include <QDialog>
#include <QPushButton>
#include <QRadioButton>

#include "appointments/attendeelist.h"
#include "appointments/frmactsc.h"
#include "appointments/frmdeleteevent.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "session/session.h"
#include "tests/views/dayhand.h"

/// Activities of several providers, REED and LANE, on REED's day.
class DayActivity : public DayHand {
  protected:
    DayActivity() {
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        for (const char* provider : {"'BAKER', 'Baker'", "'LANE', 'Lane'", "'REED', 'Reed'"})
            run(QStringLiteral("Insert Into provider_info (id, prov_lastname) Values(%1)")
                    .arg(QLatin1String(provider)));
    }

    qint64 addActivity(const char* text, const QStringList& attendees) {
        const qint64 key = add(anAppointment(text).of("~EVT").status(ncolor::Activity).at(9, 0).until(10, 0));
        for (const QString& attendee : attendees)
            run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, '%2')")
                    .arg(key)
                    .arg(attendee));
        return key;
    }
    qint64 addMeeting() { return addActivity("Meeting", {QStringLiteral("REED"), QStringLiteral("LANE")}); }
    /// The Activity Scheduler must open; the user works on it so.
    void expectScheduler(std::function<void(frmactsc&)> act) {
        desk.expectForm("frmactsc", [act = std::move(act)](QDialog& form) { act(dynamic_cast<frmactsc&>(form)); });
    }
    static void turn(frmactsc& form, const char* provider) {
        QListWidgetItem& item = *form.List1->item(form.List1->FindProvider(QString::fromLatin1(provider)));
        item.setSelected(!item.isSelected());
    }
    [[nodiscard]] QString times(qint64 key) {
        return stored(key, "nStartTime") + QLatin1Char('-') + stored(key, "nEndTime");
    }
    [[nodiscard]] QString attendees(qint64 key) {
        QStringList ids;
        for (db::Recordset rows(
                 QStringLiteral("Select clinicianid from appointmentsevents Where nkeyid = %1 Order by clinicianid")
                     .arg(key),
                 database_.connection());
             !rows.Eof(); rows.MoveNext())
            ids << rows[0].text();
        return ids.join(QLatin1Char(' '));
    }
};

TEST_F(DayActivity, TheCommandSchedulesANewActivityForTheDateThatIsShown) {
    main.SetDate(QDate(2026, 3, 12));
    openByHand();
    expectScheduler([](frmactsc& form) {
        EXPECT_EQ(form.Request().ActivityKey, 0);
        EXPECT_EQ(form.ctDEditComp->Date(), QDate(2026, 3, 12));
        EXPECT_EQ(form.ctstart->Time(), -1);
        form.reject();
    });

    command("mnuVActivity").trigger();

    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(DayActivity, ANewActivityTakesTheSelectedTimeAndStandsSelectedOnTheDay) {
    run("Insert Into Events (Event) Values('Inservice')");
    openByHand();
    mouseDrag(calendar().CellRect(1, 840).center(), calendar().CellRect(1, 885).center());
    ASSERT_TRUE(view_->SelectedTime());
    const SelectedSlot slot = *view_->SelectedTime();
    expectScheduler([slot](frmactsc& form) {
        EXPECT_EQ(form.ctstart->Time(), slot.start);
        EXPECT_EQ(form.ctend->Time(), slot.end);
        form.cboevents->SetText(QStringLiteral("Inservice"));
        turn(form, "REED");
        turn(form, "BAKER");
        form.cmdOk->click();
    });

    command("mnuVActivity").trigger();

    EXPECT_EQ(itemTexts(), QStringList{"Inservice"});
    EXPECT_EQ(item("Inservice").ItemStart, slot.start);
    EXPECT_EQ(calendar().SelectedItem(), 1);
    EXPECT_EQ(attendees(item("Inservice").ItemKey.toLongLong()), "BAKER REED");
}

TEST_F(DayActivity, AReadOnlyUserSchedulesNone) {
    Session().ScreenAccess = 1;
    openByHand();

    EXPECT_FALSE(command("mnuVActivity").isVisible());
    command("mnuVActivity").trigger();
}

TEST_F(DayActivity, EnterOpensAnActivityOfSeveralProvidersInItsScheduler) {
    const qint64 key = addMeeting();
    openByHand();
    select("Meeting");
    expectScheduler([this, key](frmactsc& form) {
        EXPECT_EQ(form.Request().ActivityKey, key);
        EXPECT_EQ(form.List1->SelectedNames(), (QStringList{"Lane", "Reed"}));
        otherDeskSets(key, QStringLiteral("cappttext = 'Big meeting'"));
        form.reject();
    });

    this->key(Qt::Key_Return);

    EXPECT_EQ(itemTexts(), QStringList{"Big meeting"});
}

TEST_F(DayActivity, AnActivityWithoutAttendeesOpensInTheEditor) {
    add(anAppointment("Call").status(ncolor::Activity));
    openByHand();
    select("Call");
    desk.expectForm("frmnore", [](QDialog& form) { form.reject(); });

    this->key(Qt::Key_Return);
}

TEST_F(DayActivity, TakingOneselfOutLeavesTheDayToTheOthers) {
    const qint64 key = addMeeting();
    openByHand();
    select("Meeting");
    expectScheduler([](frmactsc& form) {
        turn(form, "REED");
        form.cmdOk->click();
    });

    this->key(Qt::Key_Return);

    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_EQ(attendees(key), "LANE");
}

TEST_F(DayActivity, ADragOpensTheSchedulerWithTheNewTimesAndOkStoresThem) {
    const qint64 key = addMeeting();
    openByHand();
    expectScheduler([key](frmactsc& form) {
        EXPECT_EQ(form.Request().ActivityKey, key);
        EXPECT_EQ(form.ctstart->Time(), 660);
        EXPECT_EQ(form.ctend->Time(), 720);
        EXPECT_EQ(form.ctDEditComp->Date(), QDate(2026, 3, 11));
        EXPECT_TRUE(form.dirty);
        form.cmdOk->click();
    });

    moveTo("Meeting", 660);

    EXPECT_EQ(times(key), "660-720");
    EXPECT_EQ(item("Meeting").ItemStart, 660);
    EXPECT_EQ(attendees(key), "LANE REED");
}

TEST_F(DayActivity, ADragThatIsCancelledInTheSchedulerGoesBackToItsPlace) {
    const qint64 key = addMeeting();
    openByHand();
    expectScheduler([](frmactsc& form) { form.reject(); });

    moveTo("Meeting", 660);

    EXPECT_EQ(times(key), "540-600");
    EXPECT_EQ(item("Meeting").ItemStart, 540);
}

TEST_F(DayActivity, SizingOpensTheSchedulerToo) {
    const qint64 key = addMeeting();
    openByHand();
    expectScheduler([](frmactsc& form) {
        EXPECT_EQ(form.ctstart->Time(), 540);
        EXPECT_EQ(form.ctend->Time(), 660);
        form.cmdOk->click();
    });

    sizeTo("Meeting", 660);

    EXPECT_EQ(times(key), "540-660");
}

TEST_F(DayActivity, DeletingForSpecificAttendeesLetsTheUserChangeThem) {
    const qint64 key = addMeeting();
    openByHand();
    select("Meeting");
    desk.expectForm("frmDeleteEvent", [](QDialog& form) {
        auto& question = dynamic_cast<frmDeleteEvent&>(form);
        question.optdelete[2]->click();
        form.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        EXPECT_TRUE(question.WantsSpecificAttendees());
    });
    expectScheduler([this, key](frmactsc& form) {
        EXPECT_EQ(attendees(key), "LANE REED");
        turn(form, "LANE");
        form.cmdOk->click();
    });

    this->key(Qt::Key_Delete);

    EXPECT_EQ(attendees(key), "REED");
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(DayActivity, TheActivityIsSavedThatWasOpenedWhateverBecomesOfTheViewUnderIt) {
    run("Insert Into Events (Event) Values('Meeting')");
    const qint64 key = addMeeting();
    const qint64 other = addActivity("Other", {QStringLiteral("REED")});
    openByHand();
    select("Meeting");
    expectScheduler([&](frmactsc& form) {
        select("Other");
        view_->Reload();
        form.ctend->setTime(615);
        turn(form, "BAKER");
        form.cmdOk->click();
    });
    this->key(Qt::Key_Return);
    EXPECT_EQ(times(key), "540-615");
    EXPECT_EQ(attendees(key), "BAKER LANE REED");
    EXPECT_EQ(times(other), "540-600");
    EXPECT_EQ(attendees(other), "REED");

    select("Meeting");
    expectScheduler([&](frmactsc& form) {
        otherDeskDeletes(key);
        view_->Reload();
        select("Other");
        form.ctend->setTime(630);
        form.cmdOk->click();
    });
    desk.expectBox("Error saving appointment. Another user may have deleted this appointment. ", "Error");
    this->key(Qt::Key_Return);
    EXPECT_EQ(itemTexts(), QStringList{"Other"});
    EXPECT_EQ(times(other), "540-600");
}
