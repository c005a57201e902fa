#include "shell/frmaopts.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "platform/database/sql.h"
#include "session/preferences.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

class PreferencesForm : public testing::Test {
  protected:
    PreferencesForm() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Session().UID = QStringLiteral("REED");
        Session().EmailReminderText = QStringLiteral("See you on [DATE]");
    }
    ~PreferencesForm() override { ResetSession(); }

    QString stored(const char* detail, const char* category = "SchedulerGeneral") {
        return database.text(db::Sql(
            "Select UP_PD_Value from User_Preferences Where UP_UserID = 'REED' AND UP_Pref_Category = '{}' AND UP_Pref_Detail = '{}'",
            category, detail));
    }

    void store(const char* user, const char* category, const char* detail, const char* value) {
        database.connection().Execute(db::Sql(
            "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('{}', '{}', '{}', '{}')",
            user, category, detail, value));
    }

    static QStringList textsOf(const QComboBox& box) {
        QStringList texts;
        for (int i = 0; i < box.count(); ++i)
            texts << box.itemText(i);
        return texts;
    }

    static QStringList textsOf(const QButtonGroup& group) {
        QStringList texts;
        for (const QAbstractButton* button : group.buttons())
            texts << button->text();
        return texts;
    }

    TestDatabase database;
    ScriptedDesk desk;
};

}  // namespace

TEST_F(PreferencesForm, OffersTheHoursTheIntervalsAndTheColumns) {
    const frmaopts form({});
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Preferences"));
    EXPECT_EQ(textsOf(*form.cbostart),
              QStringLiteral("6:00 am,7:00 am,8:00 am,9:00 am,10:00 am,11:00 am,12:00 pm,1:00 pm").split(u','));
    EXPECT_EQ(textsOf(*form.cboend),
              QStringLiteral(" 5:00 pm, 6:00 pm, 7:00 pm, 8:00 pm, 9:00 pm,10:00 pm,11:00 pm").split(u','));
    EXPECT_EQ(textsOf(*form.optunits), QStringLiteral("5 mins.,10 mins.,15 mins.,30 mins.,60 mins.").split(u','));
    EXPECT_EQ(textsOf(*form.optdisplaycols), QStringLiteral("7 (Mon-Sun),5 (Mon-Fri)").split(u','));
    EXPECT_EQ(form.tctcols->minimum(), 5);
    EXPECT_EQ(form.tctcols->maximum(), 10);
}

TEST_F(PreferencesForm, ShowsTheSessionValues) {
    SessionValues& session = Session();
    session.DayStartHour = 7;
    session.DayEndHour = 21;
    session.TimeUnit = 30;
    session.MilitaryTime = true;
    session.ShowNonPrime = true;
    session.TaskRollOver = true;
    session.SoundEffects = true;
    store("REED", "SchedulerGeneral", "WeekCols", "7");
    store("REED", "Scheduler", "AllCols", "8");
    const frmaopts form({});
    EXPECT_EQ(form.cbostart->currentText(), QStringLiteral("7:00 am"));
    EXPECT_EQ(form.cboend->currentText(), QStringLiteral(" 9:00 pm"));
    EXPECT_EQ(form.optunits->checkedId(), 30);
    EXPECT_EQ(form.opttime->checkedId(), 24);
    EXPECT_EQ(form.optdisplaycols->checkedId(), 7);
    EXPECT_EQ(form.tctcols->value(), 8);
    EXPECT_TRUE(form.cknonprime->isChecked());
    EXPECT_TRUE(form.cktasks->isChecked());
    EXPECT_TRUE(form.cksound->isChecked());
    EXPECT_EQ(form.txtemail->toPlainText(), QStringLiteral("See you on [DATE]"));
}

TEST_F(PreferencesForm, WhatHoldsForEverybodyIsShownWhereTheUserHasNoOwn) {
    store("![ALL]!", "SchedulerGeneral", "WeekCols", "7");
    store("![ALL]!", "Scheduler", "AllCols", "9");
    const frmaopts form({});
    EXPECT_EQ(form.optdisplaycols->checkedId(), 7);
    EXPECT_EQ(form.tctcols->value(), 9);
}

TEST_F(PreferencesForm, ColumnsOutsideTheAllowedRangeAreShownAsFive) {
    for (const char* value : {"4", "11", "many"}) {
        database.connection().Execute(QStringLiteral("Delete from User_Preferences"));
        store("REED", "Scheduler", "AllCols", value);
        EXPECT_EQ(frmaopts({}).tctcols->value(), 5) << value;
    }
    EXPECT_EQ(frmaopts({}).optdisplaycols->checkedId(), 5);
}

TEST_F(PreferencesForm, OkStoresEverythingForTheUser) {
    frmaopts form({});
    form.cbostart->setCurrentIndex(0);
    form.cboend->setCurrentIndex(6);
    form.optunits->button(10)->setChecked(true);
    form.opttime->button(24)->setChecked(true);
    form.optdisplaycols->button(7)->setChecked(true);
    form.tctcols->setValue(10);
    form.cknonprime->setChecked(true);
    form.cktasks->setChecked(true);
    form.cksound->setChecked(true);
    form.txtemail->setPlainText(QStringLiteral("Come on [DATE] at [TIME]"));
    form.cmdOk->click();

    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored("TaskRollOver"), QStringLiteral("True"));
    EXPECT_EQ(stored("WeekCols"), QStringLiteral("7"));
    EXPECT_EQ(stored("MilitaryTime"), QStringLiteral("True"));
    EXPECT_EQ(stored("TimeUnit"), QStringLiteral("10"));
    EXPECT_EQ(stored("StartTime"), QStringLiteral("6"));
    EXPECT_EQ(stored("EndTime"), QStringLiteral("23"));
    EXPECT_EQ(stored("ShowNonPrime"), QStringLiteral("1"));
    EXPECT_EQ(stored("eMailReminder"), QStringLiteral("Come on [DATE] at [TIME]"));
    EXPECT_EQ(stored("AllCols", "Scheduler"), QStringLiteral("10"));
    const SessionValues& session = Session();
    EXPECT_TRUE(session.TaskRollOver && session.MilitaryTime && session.ShowNonPrime && session.SoundEffects);
    EXPECT_EQ(session.TimeUnit, 10);
    EXPECT_EQ(session.DayStartHour, 6);
    EXPECT_EQ(session.DayEndHour, 23);
    EXPECT_EQ(session.EmailReminderText, QStringLiteral("Come on [DATE] at [TIME]"));
}

TEST_F(PreferencesForm, WhatWasStoredIsReadAgain) {
    {
        frmaopts form({});
        form.optunits->button(60)->setChecked(true);
        form.cbostart->setCurrentIndex(3);
        form.cmdOk->click();
    }
    Session().TimeUnit = 15;
    Session().DayStartHour = 8;
    getiniSettings();
    EXPECT_EQ(Session().TimeUnit, 60);
    EXPECT_EQ(Session().DayStartHour, 9);
}

TEST_F(PreferencesForm, TheSoundEffectIsNotStored) {
    frmaopts form({});
    form.cksound->setChecked(true);
    form.cmdOk->click();
    EXPECT_TRUE(Session().SoundEffects);
    EXPECT_EQ(
        database.number(QStringLiteral("Select Count(*) from User_Preferences Where UP_Pref_Detail Like '%ound%'")), 0);
}

TEST_F(PreferencesForm, TheViewIsRefreshedAfterItsValuesAndBeforeTheReminder) {
    QStringList seen;
    frmaopts form([&] {
        seen << stored("StartTime") << stored("ShowNonPrime") << stored("eMailReminder")
             << QString::number(Session().TimeUnit);
    });
    form.optunits->button(5)->setChecked(true);
    form.cbostart->setCurrentIndex(3);
    form.cknonprime->setChecked(true);
    form.txtemail->setPlainText(QStringLiteral("See you"));
    form.cmdOk->click();
    EXPECT_EQ(seen,
              (QStringList{QStringLiteral("9"), QStringLiteral("1"), QStringLiteral("(none)"), QStringLiteral("5")}));
}

TEST_F(PreferencesForm, CancelStoresNothing) {
    bool refreshed = false;
    frmaopts form([&] { refreshed = true; });
    form.optunits->button(60)->setChecked(true);
    form.cmdcancel->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from User_Preferences")), 0);
    EXPECT_EQ(Session().TimeUnit, 15);
    EXPECT_FALSE(refreshed);
}

TEST_F(PreferencesForm, HoursThatAreNotOnTheListsStayAsTheyAre) {
    Session().DayStartHour = 4;
    Session().DayEndHour = 24;
    frmaopts form({});
    EXPECT_EQ(form.cbostart->currentIndex(), -1);
    EXPECT_EQ(form.cboend->currentIndex(), -1);
    form.cmdOk->click();
    EXPECT_EQ(Session().DayStartHour, 4);
    EXPECT_EQ(Session().DayEndHour, 24);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from User_Preferences")), 0);
}

TEST_F(PreferencesForm, WhatTheSameUserChangedAtAnotherDeskStays) {
    frmaopts form({});
    store("REED", "SchedulerGeneral", "TimeUnit", "60");
    store("REED", "SchedulerGeneral", "eMailReminder", "From the other desk");
    form.tctcols->setValue(7);
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored("TimeUnit"), QStringLiteral("60"));
    EXPECT_EQ(stored("eMailReminder"), QStringLiteral("From the other desk"));
    EXPECT_EQ(stored("AllCols", "Scheduler"), QStringLiteral("7"));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from User_Preferences")), 3);
}

TEST_F(PreferencesForm, AReminderWithAnApostropheIsStoredWithIt) {
    frmaopts form({});
    form.txtemail->setPlainText(QStringLiteral("Don't be late; it's at 'noon'"));
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored("eMailReminder"), QStringLiteral("Don't be late; it's at 'noon'"));
    EXPECT_EQ(Session().EmailReminderText, QStringLiteral("Don't be late; it's at 'noon'"));
}

TEST_F(PreferencesForm, ADatabaseThatIsGoneIsTold) {
    frmaopts form({});
    form.cktasks->setChecked(true);
    Session().Connection.Close();
    desk.expectBox(QStringLiteral("The preferences could not be saved. They hold until the program ends."),
                   QStringLiteral("Preferences"));
    form.cmdOk->click();
    EXPECT_NE(form.result(), QDialog::Accepted);
}

TEST_F(PreferencesForm, WhatWasChangedIsNotThrownAwayUnasked) {
    frmaopts form({});
    form.show();
    form.txtemail->setPlainText(QStringLiteral("Soon"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Preferences"),
                   Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    form.txtemail->setPlainText(QStringLiteral("See you on [DATE]"));
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(PreferencesForm, ControlCharactersOfTheReminderAreStoredAsBlanks) {
    frmaopts form({});
    form.txtemail->setPlainText(QStringLiteral("See\tyou\x01\non [DATE]"));
    form.cmdOk->click();
    EXPECT_EQ(stored("eMailReminder"), QStringLiteral("See you \non [DATE]"));
    EXPECT_EQ(Session().EmailReminderText, QStringLiteral("See you \non [DATE]"));
}

TEST_F(PreferencesForm, TheLengthOfANewVisitIsARowOfTheCalendarUntilAnotherIsEntered) {
    frmaopts form({});
    EXPECT_EQ(form.txtvisit->text(), QStringLiteral("One interval"));
    form.txtvisit->setValue(50);
    form.cmdOk->click();
    EXPECT_EQ(stored("VisitLength"), QStringLiteral("50"));
    EXPECT_EQ(Session().VisitLength, 50);
    getiniSettings();
    EXPECT_EQ(Session().VisitLength, 50);
    frmaopts again({});
    EXPECT_EQ(again.txtvisit->value(), 50);
}
