#include "tests/appointments/editorfixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"

using db::Sql;

std::optional<CalendarItem> EditorsView::SelectedItem() const {
    if (selectedKey == 0)
        return std::nullopt;
    CalendarItem item;
    item.ItemKey = QString::number(selectedKey);
    return item;
}

BookedProvider EditorsView::Provider() const {
    return chosenProvider.value_or(OpenView::Provider());
}

EditorFixture::EditorFixture() {
    SessionValues& session = Session();
    session.UID = QStringLiteral("FRONT");
    session.ProviderId = QStringLiteral("REED");
    session.ProviderName = QStringLiteral("Reed");
    session.CurrentView = View::Day;
    session.WordUsage = QStringLiteral("Patient");
    session.PhoneMask = QStringLiteral("(###) ###-####");
    session.ALEnabled = true;
    desk.setNow(QDateTime(QDate(2026, 3, 10), QTime(8, 30)));
    fillLists();
}

void EditorFixture::fillLists() {
    db::Connection& main = database.connection();
    main.Execute("Insert Into facesheet (FacesheetId, facesheetitem) Values (2, 'Account #')");
    for (const char* location : {"Main Office", "Annex", "Home visit"})
        main.Execute(Sql("Insert Into Locations (Location) Values ('{}')", location));
    for (const char* event : {"Staff Meeting", "Training"})
        main.Execute(Sql("Insert Into Events (Event) Values ('{}')", event));
    for (const char* avail : {"Lunch", "Vacation"})
        main.Execute(Sql("Insert Into availability (avail) Values ('{}')", avail));
    main.Execute("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Intake', 255)");
    main.Execute("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Follow-up', 65280)");
    main.Execute(
        "Insert Into session_types (sess_cpt_code, sess_cpt_name, sess_cpt_time) Values ('90834', 'Psychotherapy', 45)");
    main.Execute(
        "Insert Into session_types (sess_cpt_code, sess_cpt_name, sess_cpt_time) Values ('90791', 'Evaluation', 90)");
    main.Execute(
        "Insert Into session_types (sess_cpt_code, sess_cpt_name, sess_cpt_time) Values ('00000', 'No charge', 0)");
    room(QStringLiteral("Blue Room"));
    office = room(QStringLiteral("Room 2"));
    main.Execute(
        "Insert Into patient_info (id, last_name, first_name, acctnbr, telephone_h, telephone_b, EmailAddress) Values ('10017', 'Jones', 'Mary', 'A-17', '5551234567', '5559876543', 'mary@example.org')");
    main.Execute("Insert Into patient_info (id, last_name, first_name) Values ('10018', 'O''Neil', 'Zoë')");
    main.Execute("Update provider_info Set pfirst_name = 'Anna', plast_name = 'Reed' Where id = 'REED'");
}

frmnore& EditorFixture::openNew(int kind) {
    Session().ApptKind = kind;
    Session().IsNewAppt = true;
    form = std::make_unique<frmnore>();
    form->SetSlot({day, 540, 600});
    return show();
}

frmnore& EditorFixture::openRow(int key, int kind) {
    Session().ApptKind = kind;
    Session().IsNewAppt = false;
    Session().CurrentApptKey = key;
    view.selectedKey = key;
    return open();
}

frmnore& EditorFixture::open() {
    form = std::make_unique<frmnore>();
    return show();
}

frmnore& EditorFixture::show() {
    form->show();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    return *form;
}

int EditorFixture::savedPatientAppointment() {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    form->cbocpt->SetText(QStringLiteral("90834  Psychotherapy"));
    form->cbolocation->SetText(QStringLiteral("Annex"));
    form->cborooms->SetText(QStringLiteral("Room 2"));
    form->txtnotes->setPlainText(QStringLiteral("Bring the forms"));
    clickOk();
    form.reset();
    Session().IsNewAppt = false;
    return newestKey();
}

void EditorFixture::choose(const QString& patientId, const QString& name) {
    form->txtpatients->setText(name);
    form->SetPatientTag(patientId);
    form->PatientChosen();
}

QString EditorFixture::column(const char* name, int key) {
    return database.text(Sql("Select {} from appointments Where nkeyid = {}", db::Raw{QString::fromLatin1(name)}, key));
}

int EditorFixture::rowCount(const char* table) {
    return static_cast<int>(database.number(Sql("Select Count(*) from {}", db::Raw{QString::fromLatin1(table)})));
}

int EditorFixture::newestKey() {
    return static_cast<int>(database.number(QStringLiteral("Select Max(nkeyid) from appointments")));
}

void EditorFixture::type(QWidget* field, const QString& text) {
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

void EditorFixture::press(QWidget* field, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(field, key, modifiers);
}

void EditorFixture::clickOk() {
    QTest::mouseClick(form->cmdOk, Qt::LeftButton);
}

QString EditorFixture::stored(int key) {
    const db::Recordset row(Sql("Select * from appointments Where nkeyid = {}", key), database.connection());
    if (row.Eof())
        return QStringLiteral("(none)");
    return QStringLiteral("%1-%2 %3 %4 @ %5")
        .arg(row["nStartTime"].integer())
        .arg(row["nEndTime"].integer())
        .arg(row["dapptdate"].date().toString(Qt::ISODate), row["cappttext"].text(), row["CLOCATION"].text());
}
