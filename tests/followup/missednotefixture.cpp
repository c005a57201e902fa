#include "tests/followup/missednotefixture.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "data/codes.h"
#include "data/scramble.h"
#include "followup/signaturekey.h"
#include "platform/controls/notefield.h"
#include "platform/database/recordset.h"
#include "platform/desktop/userstore.h"
#include "platform/signature/sigplus.h"
#include "session/session.h"

using db::Sql;

MissedNoteFixture::MissedNoteFixture() {
    ResetSession();
    SetUserStoreFile(folder.filePath(QStringLiteral("store.ini")));
    SessionValues& session = Session();
    session.Connection.Open(database.connectionText());
    session.UID = session.ProviderId = QStringLiteral("REED");
    session.ProviderName = QStringLiteral("Reed");
    session.ScreenAccess = 3;
    session.WordUsage = QStringLiteral("Client");
    session.ALEnabled = true;
    desk.setNow(QDateTime(day, QTime(15, 5)));
    bar = new NoticeBar(&window);
    for (
        const char* statement :
        {"Insert Into provider_info (id, prov_lastname, pfirst_name, plast_name) Values ('REED', 'Reed', 'Anna', 'Reed')",
         "Insert Into provider_info (id, prov_lastname) Values ('OBRIEN', 'O''Brien')",
         "Insert Into provider_info (id, prov_lastname, archive) Values ('STONE', 'Stone', 1)",
         "Insert Into patient_info (id, last_name, first_name, incident_nbr) Values ('10017', 'Jones', 'Mary', 3)"})
        run(QString::fromLatin1(statement));
    run(Sql("Insert Into passwords (pswd_user_id, pswd_password) Values ('REED', '{}')",
            ScramblePassword(QStringLiteral("secret"), session.ScrambleKey)));
    run(Sql(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid) Values ('{}', 540, 590, 'Jones, Mary', 192, 'REED', '10017')",
        day));
    appointment = static_cast<int>(database.connection().LastIdentity());
    request = {0, appointment, ncolor::Missed, day, false};
}

MissedNoteFixture::~MissedNoteFixture() {
    form.reset();
    ResetSession();
    SetUserStoreFile({});
}

frmmsdApt& MissedNoteFixture::open() {
    return open(request);
}

frmmsdApt& MissedNoteFixture::open(const MissedNoteRequest& wanted) {
    form = std::make_unique<frmmsdApt>(wanted);
    form->show();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    return *form;
}

int MissedNoteFixture::addNote(const QString& reason) {
    run(Sql(
        "Insert Into sessions (stype, Patient, incident, DateMarker, providerid, ModifiedDate) Values (6, 'Jones, Mary', 3, '{}', 'REED', '2026/03/11 15:05')",
        day));
    const int note = static_cast<int>(database.connection().LastIdentity());
    run(Sql("Insert Into MissedAppt (id, reason) Values ({}, '{}')", note, reason));
    run(Sql("Update appointments Set NoteID = {} Where nkeyid = {}", note, appointment));
    request.NoteId = note;
    return note;
}

void MissedNoteFixture::stamp(int note) {
    run(Sql("Update sessions Set SignatureDate = '2026/03/11 15:06', SignatureName = 'Anna Reed' Where id = {}", note));
}

QString MissedNoteFixture::strokeUnder(const QString& key) {
    SigPlus pad;
    pad.resize(400, 120);
    pad.show();
    QTest::mousePress(&pad, Qt::LeftButton, {}, {20, 60});
    QTest::mouseMove(&pad, {120, 30});
    QTest::mouseMove(&pad, {200, 90});
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, {300, 50});
    pad.StartKey();
    pad.SetKeyText(key);
    pad.FinishKey();
    pad.SetEncryptionMode(2);
    pad.SetCompressionMode(1);
    return pad.SignatureText();
}

QString MissedNoteFixture::signOnPad(int note) {
    const QString drawn = strokeUnder(SignatureKey(note));
    EXPECT_FALSE(drawn.isEmpty());
    stamp(note);
    storeSignature(note, drawn);
    return drawn;
}

void MissedNoteFixture::storeSignature(int note, const QString& text, const QString& when) {
    run(Sql(
        "Insert Into SessionSignatures (session_id, signature_type, signature_role, signature_name, signature_date, signature_order, provider_id, signature) Values({}, 1, 'Note Author', 'Anna Reed', '{}', 1, 'REED', '{}')",
        note, when, text));
}

void MissedNoteFixture::ok() {
    QTest::mouseClick(form->cmdOk, Qt::LeftButton);
}

void MissedNoteFixture::type(const QString& reason) {
    form->txtreason->setFocus();
    QTest::keyClick(form->txtreason, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(form->txtreason, reason);
}

bool MissedNoteFixture::maySign() const {
    EXPECT_EQ(form->btnsign[0]->isEnabled(), form->btnsign[1]->isEnabled());
    EXPECT_EQ(form->btnsign[1]->isEnabled(), form->btnsign[2]->isEnabled());
    return form->btnsign[0]->isEnabled();
}

QString MissedNoteFixture::shown(const QWidget* label) const {
    return label->isVisible() ? qobject_cast<const QLabel*>(label)->text() : QStringLiteral("-");
}

qint64 MissedNoteFixture::rowCount(const char* table) {
    return number(Sql("Select Count(*) from {}", db::Raw{QString::fromLatin1(table)}));
}

QString MissedNoteFixture::newest(const char* column, const char* table) {
    return text(Sql("Select {} from {} Order by id Desc", db::Raw{QString::fromLatin1(column)},
                    db::Raw{QString::fromLatin1(table)}));
}

QString MissedNoteFixture::modified(int note) {
    const db::Recordset row(Sql("Select ModifiedDate from sessions Where id = {}", note), database.connection());
    return row.Eof() ? QStringLiteral("(none)") : row[0].dateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm"));
}

QStringList MissedNoteFixture::auditLines() {
    QStringList lines;
    for (db::Recordset rows(QStringLiteral("Select * from AuditLog"), database.connection()); !rows.Eof();
         rows.MoveNext()) {
        EXPECT_EQ(rows["LogUser"].text(), QStringLiteral("REED"));
        EXPECT_EQ(rows["LogLocation"].text(), QStringLiteral("Patient"));
        lines << rows["LogListId"].text() + QStringLiteral(": ") + rows["LogDescription"].text();
    }
    run(QStringLiteral("Delete from AuditLog"));
    return lines;
}

QString MissedNoteFixture::loseDatabase() {
    Session().Connection.Close();
    return FailureOf(Session().Connection, QStringLiteral("Select * from settings"));
}
