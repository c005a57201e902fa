#include "companion/frmfhevents.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "appointments/attendeelist.h"
#include "companion/companionfields.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/textfield.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/companion/eventfixture.h"
#include "tests/support/triplog.h"

using db::Sql;

namespace {

const QString Error = QStringLiteral("Error");

class EventForm : public EventFixture {
  protected:
    [[nodiscard]] QString attending() const { return form->List1->SelectedNames().join(QStringLiteral("; ")); }
    void expectLocked(const QString& why) {
        EXPECT_EQ(form->lblnotice->text(), why);
        EXPECT_TRUE(form->lblnotice->isVisible());
        for (const QWidget* part : std::initializer_list<const QWidget*>{
                 form->txtevent, form->txtdate, form->txtstarttime, form->txtduration, form->ckallday,
                 form->ckAllProviders, form->List1, form->cmdOk, form->cmdDelete})
            EXPECT_FALSE(part->isEnabled()) << part->objectName().toStdString();
        EXPECT_EQ(form->cmdCancel->text(), QStringLiteral("Close"));
        press(form->cmdCancel, Qt::Key_Escape);
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(form->IsWritten());
    }
};

}  // namespace

// A new event.

TEST_F(EventForm, ANewOneIsPresetFromTheSelection) {
    const frmFHEvents& dialog = openNew();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Fernhall Event"));
    EXPECT_EQ(dialog.txtevent->text(), QString());
    EXPECT_EQ(dialog.txtdate->Date(), day);
    EXPECT_EQ(dialog.lblweekday->text(), QStringLiteral("Wednesday"));
    EXPECT_EQ(dialog.txtstarttime->Time(), 540);
    EXPECT_EQ(dialog.txtduration->Value(), 60);
    EXPECT_EQ(dialog.lblend->text(), QStringLiteral("until 10:00 AM"));
    EXPECT_FALSE(dialog.ckallday->isChecked());
    EXPECT_FALSE(dialog.ckAllProviders->isChecked());
    EXPECT_EQ(attending(), QStringLiteral("Reed, Anna"));
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("lblheading"))->text(),
              QString::fromUtf8("Fernhall Event · Wed, Mar 11, 2026 · Reed, Anna"));
    EXPECT_TRUE(dialog.txtevent->hasFocus());
    EXPECT_FALSE(dialog.cmdDelete->isVisible());
    EXPECT_FALSE(dialog.lblnotice->isVisible());
    EXPECT_FALSE(dialog.IsChanged());
}

TEST_F(EventForm, EveryProviderHasACheckBoxByLastName) {
    openNew();
    ASSERT_EQ(form->List1->count(), 4);
    EXPECT_EQ(form->List1->ProviderName(0), QStringLiteral("Lane, Ann"));
    EXPECT_EQ(form->List1->ProviderName(1), QStringLiteral("O'Brien, Pat"));
    EXPECT_EQ(form->List1->ProviderName(3), QStringLiteral("Reed, Anna"));
    clickAttendee("O'Brien");
    EXPECT_EQ(attending(), QStringLiteral("O'Brien, Pat; Reed, Anna"));
    clickAttendee("Reed");
    EXPECT_EQ(attending(), QStringLiteral("O'Brien, Pat"));
}

TEST_F(EventForm, ProvidersOfOneNameAreToldApart) {
    run(QStringLiteral("Insert Into Providers (ProvLastName, ProvFirstName) Values ('Reed', 'Anna')"));
    run(QStringLiteral("Insert Into Providers (ProvLastName) Values ('Nobody')"));
    openNew();
    QStringList names;
    for (int row = 0; row < form->List1->count(); ++row)
        names << form->List1->ProviderName(row);
    EXPECT_TRUE(names.contains(QStringLiteral("Reed, Anna (4)")));
    EXPECT_TRUE(names.contains(QStringLiteral("Reed, Anna (5)")));
    EXPECT_TRUE(names.contains(QStringLiteral("(6)"))) << names.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(attending(), QStringLiteral("Reed, Anna (4)"));
}

TEST_F(EventForm, OfManyProvidersTheFirstAttendeeIsInSight) {
    for (int i = 0; i < 300; ++i)
        run(Sql("Insert Into Providers (ProvLastName, ProvFirstName) Values ('Abel {}', 'Some')", i));
    openEvent(huddle({Quintana, Reed}));
    EXPECT_EQ(form->List1->currentItem()->text(), QStringLiteral("Quintana, Beatriz"));
    EXPECT_TRUE(form->List1->viewport()->rect().contains(form->List1->visualItemRect(form->List1->currentItem())));
    EXPECT_EQ(attending(), QStringLiteral("Quintana, Beatriz; Reed, Anna"));
    for (int row = 0; row < 4; ++row)
        clickAttendee(qPrintable(QStringLiteral("Abel 29%1").arg(row)));
    const auto* summary = form->findChild<QLabel*>(QStringLiteral("lblattendees"));
    EXPECT_TRUE(summary->text().startsWith(QStringLiteral("6 attendees: Abel 290, Some")))
        << qPrintable(summary->text());
    EXPECT_TRUE(summary->text().endsWith(QStringLiteral(" more")));
    EXPECT_TRUE(summary->toolTip().contains(QStringLiteral("Quintana, Beatriz")));
}

TEST_F(EventForm, AnUnknownColumnAndNoSelectionLeaveTheFieldsToTheUser) {
    open({.date = {}, .start = 0, .duration = 0, .provId = 99});
    EXPECT_TRUE(form->txtdate->IsEmpty());
    EXPECT_EQ(form->txtstarttime->Time(), 0);
    EXPECT_TRUE(form->txtduration->IsEmpty());
    EXPECT_EQ(attending(), QString());
}

TEST_F(EventForm, ProvidersThatCannotBeReadAreTold) {
    const QString why = DropTable(companion.connection(), QStringLiteral("Providers"));
    desk.expectBox(QStringLiteral("Error loading Fernhall providers. ") + why, Error);
    openNew();
    EXPECT_EQ(form->List1->count(), 0);
    EXPECT_TRUE(form->cmdOk->isEnabled());
}

TEST_F(EventForm, ACompanionThatIsAwayIsToldOnce) {
    const QString why = loseCompanion();
    desk.expectBox(QStringLiteral("Error loading Fernhall providers. ") + why, Error);
    openNew();
    form.reset();
    desk.expectBox(QStringLiteral("Error loading event. ") + why, Error);
    openEvent(7);
    expectLocked(QStringLiteral("The event could not be read, so it cannot be changed here."));
}

// The fields.

TEST_F(EventForm, TheEndIsToldInWords) {
    openNew();
    type(form->txtduration, QStringLiteral("180"));
    EXPECT_EQ(form->lblend->text(), QStringLiteral("until 12:00 Noon"));
    type(form->txtduration, QStringLiteral("900"));
    EXPECT_EQ(form->lblend->text(), QStringLiteral("until 12:00 Mid"));
    type(form->txtduration, QStringLiteral("2000"));
    EXPECT_EQ(form->lblend->text(), QStringLiteral("past midnight"));
    form->ckallday->click();
    EXPECT_EQ(form->lblend->text(), QStringLiteral("shown all day"));
    form->ckallday->click();
    type(form->txtduration, QString());
    EXPECT_EQ(form->lblend->text(), QString());
}

TEST_F(EventForm, UpAndDownMoveTheDateByADayAndTheTimeByASlot) {
    Session().TimeUnit = 30;
    openNew();
    press(form->txtdate, Qt::Key_Up);
    EXPECT_EQ(form->txtdate->Date(), day.addDays(1));
    press(form->txtdate, Qt::Key_Down);
    press(form->txtdate, Qt::Key_Down);
    EXPECT_EQ(form->txtdate->Date(), day.addDays(-1));
    press(form->txtstarttime, Qt::Key_Up);
    EXPECT_EQ(form->txtstarttime->Time(), 570);
    press(form->txtstarttime, Qt::Key_Down);
    press(form->txtstarttime, Qt::Key_Down);
    EXPECT_EQ(form->txtstarttime->Time(), 510);
    form->txtstarttime->setTime(30);
    press(form->txtstarttime, Qt::Key_Down);
    EXPECT_EQ(form->txtstarttime->Time(), 30) << "below one minute";
    form->txtstarttime->setTime(1410);
    press(form->txtstarttime, Qt::Key_Up);
    EXPECT_EQ(form->txtstarttime->Time(), 1410) << "at the end of the day";
}

TEST_F(EventForm, EnteringAFieldSelectsItsText) {
    openNew();
    for (QWidget* field : std::initializer_list<QWidget*>{form->txtdate, form->txtstarttime, form->txtduration}) {
        field->setFocus(Qt::TabFocusReason);
        const auto* edit = field->findChild<QLineEdit*>();
        EXPECT_EQ(edit->selectedText(), edit->text()) << field->objectName().toStdString();
    }
}

TEST_F(EventForm, TheTimeStandsInTwentyFourHoursWhereTheUserWantsIt) {
    Session().MilitaryTime = true;
    open({.date = day, .start = 810, .duration = 45, .provId = Reed});
    EXPECT_EQ(form->txtstarttime->Text(), QStringLiteral("13:30"));
    EXPECT_EQ(form->lblend->text(), QStringLiteral("until 14:15"));
}

TEST_F(EventForm, EverythingIsReachedByItsLetterAndHasAName) {
    openEvent(huddle({Reed}));
    QStringList letters;
    for (const QLabel* label : form->findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            letters << QKeySequence::mnemonic(label->text()).toString();
    for (const QAbstractButton* button : form->findChildren<QAbstractButton*>())
        if (button->isVisible() && !QKeySequence::mnemonic(button->text()).isEmpty())
            letters << QKeySequence::mnemonic(button->text()).toString();
    EXPECT_EQ(letters.size(), 9) << letters.join(QLatin1Char(' ')).toStdString();
    EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(QLatin1Char(' ')).toStdString();
    for (QWidget* field :
         std::initializer_list<QWidget*>{form->txtevent, form->txtdate, form->txtstarttime, form->txtduration,
                                         form->ckallday, form->ckAllProviders, form->List1, form->cmdDelete})
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name).isEmpty())
            << field->objectName().toStdString();
}

TEST_F(EventForm, AnEventIsMadeByKeysAlone) {
    openNew();
    QTest::keyClicks(form->txtevent, QStringLiteral("Training"));
    QWidget* const inOrder[] = {form->txtdate,  form->txtstarttime,   form->txtduration,
                                form->ckallday, form->ckAllProviders, form->List1};
    for (const QWidget* field : inOrder) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(field->hasFocus()) << field->objectName().toStdString();
    }
    QTest::keyClick(form->List1, Qt::Key_Home);
    QTest::keyClick(form->List1, Qt::Key_Space);
    EXPECT_EQ(attending(), QStringLiteral("Lane, Ann; Reed, Anna"));
    QTest::keyClick(form->List1, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(attendees(newestKey()), QStringLiteral("1 4"));
}

TEST_F(EventForm, EscapeAsksOnlyWhenSomethingWasTyped) {
    openNew();
    press(form->txtevent, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        openFilled();
        desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Fernhall Event"),
                       answer);
        press(form->txtevent, Qt::Key_Escape);
        EXPECT_EQ(form->isVisible(), answer == Answer::No);
        EXPECT_FALSE(form->IsWritten());
    }
    EXPECT_EQ(companion.number(QStringLiteral("Select Count(*) from CalendarEvents")), 0);
}

// Loading an event.

TEST_F(EventForm, AnEventFillsTheFieldsAndChecksItsAttendees) {
    const int key = huddle({Lane, Reed});
    run(Sql("Update CalendarEvents Set CEveAllDayInd = 1, CEveAllProvidersInd = 1 Where CEveId = {}", key));
    const frmFHEvents& dialog = openEvent(key);
    EXPECT_EQ(dialog.txtevent->text(), QStringLiteral("Huddle"));
    EXPECT_EQ(dialog.txtdate->Date(), day);
    EXPECT_EQ(dialog.txtstarttime->Time(), 540);
    EXPECT_EQ(dialog.txtduration->Value(), 30);
    EXPECT_TRUE(dialog.ckallday->isChecked());
    EXPECT_TRUE(dialog.ckAllProviders->isChecked());
    EXPECT_EQ(attending(), QStringLiteral("Lane, Ann; Reed, Anna"));
    EXPECT_TRUE(dialog.cmdDelete->isVisible());
    EXPECT_FALSE(dialog.IsChanged());
}

TEST_F(EventForm, LoadingTakesOneLoginAndOneTripForTheRows) {
    const int key = huddle({Lane, Reed});
    EXPECT_TRUE(TakesAtMost(2, [&] { openEvent(key); }));
}

TEST_F(EventForm, AnIndicatorOtherThanOneIsOff) {
    const int key = huddle({Reed});
    run(Sql("Update CalendarEvents Set CEveAllDayInd = 2, CEveAllProvidersInd = -1 Where CEveId = {}", key));
    openEvent(key);
    EXPECT_FALSE(form->ckallday->isChecked());
    EXPECT_FALSE(form->ckAllProviders->isChecked());
}

TEST_F(EventForm, ARowOfNullsIsShownAndAskedFor) {
    run(QStringLiteral("Insert Into CalendarEvents (CEveName, CEveDuration, RecrId) Values (null, null, null)"));
    const int key = newestKey();
    run(Sql("Insert Into CalendarProviderEvents (CEveId, ProvId) Values ({}, 4)", key));
    const frmFHEvents& dialog = openEvent(key);
    EXPECT_TRUE(dialog.txtdate->IsEmpty());
    EXPECT_TRUE(dialog.txtstarttime->IsEmpty());
    EXPECT_TRUE(dialog.txtduration->IsEmpty());
    expectRefusal("Enter an event.", dialog.txtevent);
    type(dialog.txtevent, QStringLiteral("Found again"));
    expectRefusal("Enter a valid date.", dialog.txtdate);
    type(dialog.txtdate, QStringLiteral("3/12/2026"));
    expectRefusal("Enter a valid time.", dialog.txtstarttime);
    type(dialog.txtstarttime, QStringLiteral("8:00 AM"));
    expectRefusal("Enter a valid duration.", dialog.txtduration);
    type(dialog.txtduration, QStringLiteral("20"));
    ok();
    EXPECT_EQ(stored(key), QStringLiteral("Found again|2026-03-12|480|20|0|0"));
}

TEST_F(EventForm, ALongDurationAndALongNameAreKept) {
    const int key = huddle({Reed});
    const QString name = QString(255, u'n');
    run(Sql("Update CalendarEvents Set CEveName = '{}', CEveDuration = 2000 Where CEveId = {}", name, key));
    openEvent(key);
    ok();
    EXPECT_EQ(stored(key), name + QStringLiteral("|2026-03-11|540|2000|0|0"));
}

TEST_F(EventForm, ADurationThatIsNoneIsAskedFor) {
    const int key = huddle({Reed});
    for (const int minutes : {0, -30}) {
        run(Sql("Update CalendarEvents Set CEveDuration = {} Where CEveId = {}", minutes, key));
        openEvent(key);
        expectRefusal("Enter a valid duration.", form->txtduration);
    }
}

TEST_F(EventForm, AnAttendeeWhoIsOnNoListIsNotLost) {
    const int key = huddle({Reed, 77});
    openEvent(key);
    EXPECT_EQ(attending(), QStringLiteral("Reed, Anna; Provider 77 (no longer on the list)"));
    clickAttendee("Lane");
    ok();
    EXPECT_EQ(attendees(key), QStringLiteral("1 4 77"));
    openEvent(key);
    clickAttendee("Provider 77");
    ok();
    EXPECT_EQ(attendees(key), QStringLiteral("1 4"));
}

TEST_F(EventForm, AnEventThatCannotBeReadIsToldAndNotWrittenOver) {
    const int key = huddle({Reed});
    const QString why = DropTable(companion.connection(), QStringLiteral("CalendarProviderEvents"));
    desk.expectBox(QStringLiteral("Error loading event. ") + why, Error);
    openEvent(key);
    expectLocked(QStringLiteral("The event could not be read, so it cannot be changed here."));
}

TEST_F(EventForm, AnEventThatIsGoneSaysSo) {
    const int key = huddle({Reed});
    run(QStringLiteral("Delete from CalendarProviderEvents"));
    run(QStringLiteral("Delete from CalendarEvents"));
    openEvent(key);
    expectLocked(QStringLiteral("The event is no longer there. Fernhall or another desk has deleted it."));
}

TEST_F(EventForm, AnEventWithoutAttendeesIsShownAndLeftToFernhall) {
    openEvent(huddle({}));
    EXPECT_EQ(form->txtevent->text(), QStringLiteral("Huddle"));
    EXPECT_EQ(form->txtstarttime->Time(), 540);
    expectLocked(QStringLiteral("Nobody attends this event. Only Fernhall can change it."));
}

TEST_F(EventForm, ASeriesIsShownAndLeftToFernhall) {
    const int key = huddle({Reed});
    run(Sql("Update CalendarEvents Set RecrId = 5 Where CEveId = {}", key));
    openEvent(key);
    EXPECT_EQ(form->txtevent->text(), QStringLiteral("Huddle"));
    expectLocked(QStringLiteral("You cannot modify a recurring event in Solvane. Use Fernhall to modify this event."));
}

TEST_F(EventForm, WhoMayNotDeleteIsToldByTheButton) {
    Session().ScreenAccess = 2;
    openEvent(huddle({Reed}));
    EXPECT_FALSE(form->cmdDelete->isEnabled());
    EXPECT_EQ(form->cmdDelete->toolTip(), QStringLiteral("You do not have rights to delete appointments or events."));
    EXPECT_TRUE(form->cmdOk->isEnabled());
}
