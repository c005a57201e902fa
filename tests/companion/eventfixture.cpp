#include "tests/companion/eventfixture.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "appointments/attendeelist.h"
#include "companion/companiontime.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Sql;

EventFixture::EventFixture() {
    ResetSession();
    SessionValues& session = Session();
    session.FHConnectionString = companion.connectionText();
    session.FHProviderId = 4711;
    session.ScreenAccess = 3;
    desk.setNow(QDateTime(QDate(2026, 3, 10), QTime(8, 30), Qt::UTC));
    const char* const names[][2] = {{"Lane", "Ann"}, {"O''Brien", "Pat"}, {"Quintana", "Beatriz"}, {"Reed", "Anna"}};
    for (const auto& [last, first] : names)
        run(Sql("Insert Into Providers (ProvLastName, ProvFirstName) Values ('{}', '{}')",
                db::Raw{QString::fromLatin1(last)}, first));
}

frmFHEvents& EventFixture::open(const CompanionEventRequest& request) {
    form = std::make_unique<frmFHEvents>(request);
    form->show();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    return *form;
}

frmFHEvents& EventFixture::openNew() {
    return open({.date = day, .start = 540, .duration = 60, .provId = Reed});
}

frmFHEvents& EventFixture::openEvent(int ceveid) {
    return open({.ceveid = ceveid});
}

frmFHEvents& EventFixture::openFilled() {
    frmFHEvents& opened = openNew();
    type(opened.txtevent, QStringLiteral("Team huddle"));
    return opened;
}

int EventFixture::huddle(const QList<int>& attendees) {
    run(QStringLiteral(
        "Insert Into CalendarEvents (CEveName, CEveDate, CEveEndDate, CEveTime, CEveDuration, CEveReminderInd, CEveReminderLeadMinutes, DateCreated, UserIDCreated) Values ('Huddle', '2026/03/11', '2026/03/13', '2026/03/11 09:00', 30, 1, 15, '2026/01/02', 9)"));
    const int key = newestKey();
    for (const int provider : attendees)
        run(Sql("Insert Into CalendarProviderEvents (CEveId, ProvId) Values ({}, {})", key, provider));
    return key;
}

void EventFixture::type(QWidget* field, const QString& text) {
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(field, Qt::Key_Delete);
    else
        QTest::keyClicks(field, text);
}

void EventFixture::press(QWidget* field, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    field->setFocus();
    QTest::keyClick(field, key, modifiers);
}

void EventFixture::clickAttendee(const char* name) {
    AttendeeList& list = *form->List1;
    const QList<QListWidgetItem*> rows = list.findItems(QString::fromLatin1(name), Qt::MatchStartsWith);
    ASSERT_EQ(rows.size(), 1) << name;
    list.scrollToItem(rows.first());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(rows.first()).center());
}

void EventFixture::ok() {
    QTest::mouseClick(form->cmdOk, Qt::LeftButton);
}

void EventFixture::clickDelete() {
    QTest::mouseClick(form->cmdDelete, Qt::LeftButton);
}

void EventFixture::expectRefusal(const char* message, QWidget* field) {
    desk.expectBox(QString::fromLatin1(message), QStringLiteral("Solvane"));
    ok();
    EXPECT_TRUE(field->hasFocus()) << message;
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->IsWritten());
}

QString EventFixture::stored(int ceveid) {
    const db::Recordset row(Sql("Select * from CalendarEvents Where CEveId = {}", ceveid), companion.connection());
    if (row.Eof())
        return QStringLiteral("(none)");
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(row["CEveName"].text(), row["CEveDate"].date().toString(Qt::ISODate))
        .arg(CompanionMinutes(row["CEveTime"]).value_or(-1))
        .arg(row["CEveDuration"].integer())
        .arg(row["CEveAllDayInd"].integer())
        .arg(row["CEveAllProvidersInd"].integer());
}

QString EventFixture::column(const char* name, int ceveid) {
    return companion.text(
        Sql("Select {} from CalendarEvents Where CEveId = {}", db::Raw{QString::fromLatin1(name)}, ceveid));
}

int EventFixture::newestKey() {
    return static_cast<int>(companion.number(QStringLiteral("Select Max(CEveId) from CalendarEvents")));
}

QString EventFixture::attendees(int ceveid) {
    QStringList ids;
    for (db::Recordset rows(Sql("Select ProvId from CalendarProviderEvents Where CEveId = {} Order by ProvId", ceveid),
                            companion.connection());
         !rows.Eof(); rows.MoveNext())
        ids << rows[0].text();
    return ids.join(QLatin1Char(' '));
}

QString EventFixture::loseCompanion() {
    Session().FHConnectionString = QStringLiteral("Data Source=/nowhere/at/all;Initial Catalog=companion");
    try {
        db::Connection nowhere;
        nowhere.Open(Session().FHConnectionString);
    } catch (const db::DatabaseError& error) {
        return error.description;
    }
    ADD_FAILURE() << "There is a companion at a place that does not exist.";
    return {};
}
