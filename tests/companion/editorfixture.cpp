#include "tests/companion/editorfixture.h"

#include <QApplication>
#include <QLabel>

#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "session/fillprogress.h"
#include "session/session.h"

using db::Sql;

QString SentLike(const TripLog& log, const QString& beginning) {
    for (const QString& line : log.sent())
        if (const qsizetype at = line.indexOf(beginning); at >= 0)
            return line.mid(at);
    return {};
}

CompanionEditorFixture::CompanionEditorFixture() {
    desk.setNow(QDateTime({2026, 3, 11}, {9, 30}, Qt::UTC));
    ResetSession();
    SessionValues& session = Session();
    session.Connection.Open(main.connectionText());
    session.UID = QStringLiteral("REED");
    session.ScreenAccess = 3;
    session.AllProviders = true;
    session.FHConnectionString = companion.connectionText();
    session.FHDatabaseId = QStringLiteral("FH-1");
    session.FHProviderId = Reed;
    run(QStringLiteral("Insert Into Providers (ProvLastName, ProvFirstName) Values ('Reed', 'Anna')"));
    run(QStringLiteral("Insert Into Providers (ProvLastName, ProvFirstName) Values ('Young', 'Bo')"));
    run(QStringLiteral(
        "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values ('90834', 'Session', 'C')"));
    run(QStringLiteral(
        "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values ('90837', 'Long session', 'C')"));
    run(QStringLiteral(
        "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values ('PMT', 'Payment', 'P')"));
    run(QStringLiteral(
        "Insert Into Clients (ClntLastName, ClntFirstName, TranIDQuickCharge) Values ('Stone', 'Mary', 2)"));
    run(QStringLiteral("Insert Into Clients (ClntLastName, ClntFirstName) Values ('O''Brien', 'Ian')"));
    addPatient(QStringLiteral("P1"), QStringLiteral("Stone"), QStringLiteral("Mary"), QStringLiteral("REED"));
    pair(1, Reed, QStringLiteral("REED"));
    pair(4, Mary, QStringLiteral("P1"));
}

CompanionEditorFixture::~CompanionEditorFixture() {
    form_.reset();
    ResetSession();
}

void CompanionEditorFixture::pair(int list, int fhValue, const QString& svValue, const QString& database) {
    runMain(
        Sql("Insert Into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values ({}, '{}', {}, '{}')",
            list, database, fhValue, svValue));
}

void CompanionEditorFixture::addPatient(const QString& id, const QString& last, const QString& first,
                                        const QString& provider) {
    runMain(Sql(
        "Insert Into patient_info (id, last_name, first_name, provider_id, archive) Values ('{}', '{}', '{}', '{}', 0)",
        id, last, first, provider));
}

void CompanionEditorFixture::addAlert(const QString& patient, const QString& type, const QString& text) {
    runMain(Sql("Insert Into Patient_Alerts (patient_id, alert_type, Status, alert) Values ('{}', '{}', 1, '{}')",
                patient, type, text));
}

void CompanionEditorFixture::expectAlert(const QString& text) {
    desk.expectForm("frmAlert", [text](QDialog& form) {
        EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lblalert"))->text(), text);
        form.accept();
    });
}

void CompanionEditorFixture::dropSessionColumn() {
    run(QStringLiteral("Drop Table ClientTransactions"));
    run(QStringLiteral(
        "Create Table ClientTransactions (CtrnId int identity(1,1) not null primary key, ClntId int null, TranId int null, ProvId int null, CtrnDate datetime null, CtrnTime datetime null, CtrnDuration int null, CtrnStatus nvarchar(1) null, RecurTranId int null, CtrnNotes nvarchar(max) null, appt_status smallint null, CTRNDiagnosisPointer smallint null, CTRNDiagnosisPointerS nvarchar(10) null, ClaimSubmStatus smallint null, isICDBlock12 smallint null, DateCreated datetime null, UserIDCreated int null, LastModifiedDate datetime null, UserIdLastModified int null)"));
}

int CompanionEditorFixture::addAppointment() {
    run(QStringLiteral(
        "Insert Into ClientTransactions (ClntId, TranId, ProvId, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus, CtrnNotes, appt_status) Values (1, 1, 1, '2026/03/12', '2026-03-12 09:00', 45, 'S', 'Bring forms', 2)"));
    return static_cast<int>(companion.connection().LastIdentity());
}

QString CompanionEditorFixture::stored(const QString& column) {
    return companion.text(Sql("Select {} From ClientTransactions", db::Raw{column}));
}

CompanionAppointmentRequest CompanionEditorFixture::newRequest() {
    return {.ClientId = Mary,
            .ClientName = QStringLiteral("Stone, Mary"),
            .date = QDate(2026, 3, 12),
            .start = 600,
            .duration = 50,
            .ProvId = Reed};
}

frmFHAppt& CompanionEditorFixture::open(const CompanionAppointmentRequest& request) {
    auto form = std::make_unique<frmFHAppt>(request);
    frmFHAppt& shown = *form;
    form_ = std::move(form);
    shown.show();
    shown.activateWindow();
    QApplication::processEvents();
    return shown;
}

frmFHClients& CompanionEditorFixture::openClients(int ProvId) {
    auto form = std::make_unique<frmFHClients>(ProvId, QStringLiteral("Reed, Anna"));
    frmFHClients& shown = *form;
    form_ = std::move(form);
    shown.show();
    shown.activateWindow();
    QApplication::processEvents();
    return shown;
}

QStringList CompanionEditorFixture::namesOf(const frmFHClients& form) {
    while (form.pnlprogress->isVisible())
        QApplication::processEvents();
    QStringList names;
    for (int row = 0; row < form.List1->RowCount(); ++row)
        names << form.List1->Cell(row, 1);
    return names;
}
