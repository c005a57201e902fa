#include "tests/people/newpatientfixture.h"

#include <algorithm>
#include <QApplication>
#include <QComboBox>
#include <QTest>

#include "people/frmnewpat.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/sql.h"
#include "session/session.h"

NewPatientFixture::NewPatientFixture() {
    ResetSession();
    SessionValues& session = Session();
    session.Connection.Open(database.connectionText());
    session.UID = QStringLiteral("DESK");
    session.WordUsage = QStringLiteral("Client");
    session.PhoneMask = QStringLiteral("(###) ###-####");
    sql("Insert Into provider_info (id, prov_lastname, archive) Values ('YOUNG', 'Young', 0)");
    sql("Insert Into provider_info (id, prov_lastname, archive) Values ('ABEL', 'Abel', 0)");
    sql("Insert Into provider_info (id, prov_lastname, archive) Values ('GONE', 'Gone', 1)");
    Desktop().random = [this] { return draw(); };
}

NewPatientFixture::~NewPatientFixture() {
    form_.reset();
    ResetSession();
}

void NewPatientFixture::sql(const char* statement) {
    database.connection().Execute(QString::fromUtf8(statement));
}

QString NewPatientFixture::stored(const char* column) {
    return database.text(db::Sql("Select {} From patient_info", db::Raw{QString::fromLatin1(column)}));
}

QString NewPatientFixture::episode(const char* column) {
    return database.text(db::Sql("Select {} From incident_hx", db::Raw{QString::fromLatin1(column)}));
}

frmnewpat& NewPatientFixture::open() {
    form_ = std::make_unique<frmnewpat>(frmnewpat::Names());
    form_->show();
    form_->activateWindow();
    QApplication::processEvents();
    return *form_;
}

void NewPatientFixture::type(QWidget* field, const QString& text) {
    field->setFocus();
    if (qobject_cast<QComboBox*>(field) == nullptr)
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Tab);
}

void NewPatientFixture::fillRequired(frmnewpat& form) {
    type(form.txtlname, QStringLiteral("Smith"));
    type(form.txtfname, QStringLiteral("John"));
    type(form.txtdob, QStringLiteral("12/3/1980"));
    type(form.cbosex, QStringLiteral("M"));
    type(form.cboprovider, QStringLiteral("A"));
}

void NewPatientFixture::linkCompanion() {
    companion = std::make_unique<TestDatabase>(SchemaScript::Companion);
    Session().FHConnectionString = companion->connectionText();
    Session().FHDatabaseId = QStringLiteral("FH-1");
    Session().FHAutoExport = true;
    sql("Insert Into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (1, 'FH-1', 7, 'ABEL')");
}

double NewPatientFixture::draw() {
    return drawn.at(std::min(draws_++, drawn.size() - 1));
}
