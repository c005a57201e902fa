#include "tests/appointments/activityfixture.h"

#include <QPushButton>
#include <QTest>

#include "appointments/attendeelist.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"

using db::Sql;

ActivityFixture::ActivityFixture() {
    provider(QStringLiteral("LANE"), QStringLiteral("Lane"));
    provider(QStringLiteral("STONE"), QStringLiteral("Stone"));
}

frmactsc& ActivityFixture::openNewActivity() {
    return open({0, view.shownDate, view.selectedTime});
}

frmactsc& ActivityFixture::openActivity(int key, const std::optional<SelectedSlot>& draggedTo) {
    return open({key, view.shownDate, draggedTo});
}

frmactsc& ActivityFixture::open(const ActivityRequest& request) {
    scheduler = std::make_unique<frmactsc>(request);
    scheduler->show();
    scheduler->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(scheduler.get()));
    return *scheduler;
}

int ActivityFixture::activity(const QStringList& attendees) {
    const int key = appointment(
        {.text = QStringLiteral("Staff Meeting"), .provider = QStringLiteral("~EVT"), .patient = QString()});
    db::Connection& main = database.connection();
    main.Execute(
        Sql("Update appointments Set ncolor = 16777088, CLOCATION = 'Annex', BLOCATEICO = 1 Where nkeyid = {}", key));
    for (const QString& id : attendees)
        main.Execute(Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, '{}')", key, id));
    return key;
}

frmactsc& ActivityFixture::openFilledActivity() {
    frmactsc& dialog = openNewActivity();
    type(dialog.cboevents, QStringLiteral("Staff Meeting"));
    type(dialog.ctstart, QStringLiteral("9:00 AM"));
    type(dialog.ctend, QStringLiteral("10:00 AM"));
    clickProvider("Reed");
    clickProvider("O'Brien");
    return dialog;
}

void ActivityFixture::clickProvider(const char* name) {
    AttendeeList& list = *scheduler->List1;
    const int row = rowOf(name);
    ASSERT_GE(row, 0) << name;
    list.scrollToItem(list.item(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
}

void ActivityFixture::clickButton(QPushButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
}

int ActivityFixture::rowOf(const char* name) {
    for (int row = 0; row < scheduler->List1->count(); ++row)
        if (scheduler->List1->ProviderName(row) == QLatin1String(name))
            return row;
    return -1;
}

QString ActivityFixture::attendees(int key) {
    QStringList ids;
    for (db::Recordset rows(
             Sql("Select clinicianid from AppointmentsEvents Where nkeyid = {} Order by clinicianid", key),
             database.connection());
         !rows.Eof(); rows.MoveNext())
        ids << rows[0].text();
    return ids.join(QLatin1Char(' '));
}
