#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "bridge/clientexport.h"
#include "data/phone.h"
#include "people/addressedit.h"
#include "people/frmnewpat.h"
#include "people/randomid.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"
#include "platform/controls/datefield.h"
#include "platform/controls/listmodel.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/questions.h"
#include "platform/text/plaintext.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int LowestId = 10000;
constexpr int HighestId = 99999999;
constexpr int MostShown = 3;

// A pasted line end does not belong in a name.
QString textOf(const QLineEdit* field) {
    return field->text().simplified();
}

db::Recordset sameNames(const QString& last, const QString& first) {
    return {db::Sql("SELECT * From patient_info WHERE Upper(last_name) = '{}' AND Upper(first_name) = '{}'",
                    last.toUpper(), first.toUpper()),
            Session().Connection};
}

/// Whether the user may read the data of the current patient: with every schedule, of one's own patients, and of those
/// whom the user was given access to.
bool mayKnow(const db::Recordset& patient) {
    const SessionValues& session = Session();
    if (session.AllProviders || patient["provider_id"].text().compare(session.UID, Qt::CaseInsensitive) == 0)
        return true;
    return !db::Recordset(db::Sql("Select * from PatientAccess where patientid = '{}' and providerid = '{}'",
                                  patient["id"].text(), session.UID),
                          Session().Connection)
                .Eof();
}

/// Returns by what the current patient can be told from another of the same name.
QString factsOf(const db::Recordset& patient) {
    if (!mayKnow(patient))
        return frmnewpat::tr("A patient of another provider.");
    if (Session().HidePatientNames)
        return HiddenNameText();
    QStringList facts{
        QStringLiteral("%1, %2").arg(OneLine(patient["last_name"].text()), OneLine(patient["first_name"].text()))};
    const QDate born = patient["birth_date"].date();
    facts << (born.isValid()
                  ? frmnewpat::tr("born %1").arg(DateFieldText(born, static_cast<DateOrder>(Session().DateOrder)))
                  : frmnewpat::tr("date of birth not known"));
    QString phone;
    for (const char* column : {"telephone_h", "Other_Phone", "telephone_b"})
        if (phone.isEmpty())
            phone = OneLine(FormatPhone(patient[column].text().trimmed(), MaskToFormat(Session().PhoneMask)));
    facts << (phone.isEmpty() ? frmnewpat::tr("no telephone") : phone);
    if (patient["archive"].integer() != 0)
        facts << frmnewpat::tr("not active");
    return facts.join(QStringLiteral(" \u00b7 "));
}

/// Returns a line for each patient of a name, for as many as a box has room for.
QString factsOfAll(db::Recordset patients) {
    QStringList lines;
    for (; !patients.Eof() && lines.size() < MostShown; patients.MoveNext())
        lines << factsOf(patients);
    if (const qsizetype more = patients.RecordCount() - lines.size(); more > 0)
        lines << frmnewpat::tr("and %1 more").arg(more);
    return lines.join(u'\n');
}

}  // namespace

bool frmnewpat::dupname(const QString& last, const QString& first) {
    return !sameNames(last, first).Eof();
}

bool frmnewpat::savenewpatient() {
    if (const QList<MissingField> missing = missingFields(); !missing.isEmpty()) {
        MsgBox(lblmissing->text(), ExclamationBox, windowTitle());
        missing.first().field->setFocus();
        return false;
    }
    const BusyPointer busy;
    QString id;
    try {
        if (!mayAddName())
            return false;
        id = GenerateRandomId(QStringLiteral("patient_info"), LowestId, HighestId, {});
        if (id.isEmpty()) {
            MsgBox(QStringLiteral("Error generating ID. Try again."), ErrorBox, QStringLiteral("Error"));
            return false;
        }
        db::InTransaction(Session().Connection, [&] {
            insertPatient(id);
            insertEpisode(id);
        });
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Unable to save. "), error);
        return false;
    }
    newPatientId_ = id;
    AuditLog(Session().UID, QStringLiteral("Patient"), QStringLiteral("New Patient"), {},
             QStringLiteral("Added new patient - %1, %2").arg(textOf(txtlname), textOf(txtfname)));
    exportPatient(id);
    dirty = false;
    return true;
}

bool frmnewpat::mayAddName() const {
    const db::Recordset known = sameNames(textOf(txtlname), textOf(txtfname));
    if (known.Eof())
        return true;
    const Answer answer = AskWithFacts(
        QStringLiteral("%1, %2 is already in the database. Continue?").arg(textOf(txtlname), textOf(txtfname)),
        factsOfAll(known), QStringLiteral("Duplicate Name"));
    if (answer == Answer::No)
        txtlname->setFocus();
    return answer == Answer::Yes;
}

void frmnewpat::insertPatient(const QString& id) {
    db::Recordset patient("Select * from patient_info Where 0=1", Session().Connection, db::Lock::Optimistic);
    patient.AddNew();
    patient.Set("id", id);
    patient.Set("incident_nbr", 1);
    patient.Set("total_episodes", 1);
    patient.Set("acctnbr", textOf(txtid));
    patient.Set("last_name", textOf(txtlname));
    patient.Set("first_name", textOf(txtfname));
    patient.Set("middle_init", textOf(txtmi));
    patient.Set("salutation", textOf(txtsal));
    patient.Set("birth_date", birthDate());
    if (txtssn->IsFilled())
        patient.Set("ssn", txtssn->Raw());
    patient.Set("address", txtaddress->StoredText());
    patient.Set("city", textOf(txtcity));
    patient.Set("state", textOf(txtstate));
    patient.Set("zipcode", textOf(txtzip));
    patient.Set("telephone_h", txthphone->Raw().trimmed());
    patient.Set("telephone_b", txtwphone->Raw().trimmed());
    if (const QString cell = txtcphone->Raw().trimmed(); !cell.isEmpty()) {
        patient.Set("Other_Phone", cell);
        // Without its kind the other telephone is shown nowhere.
        patient.Set("Other_Phone_Type", QStringLiteral("Cell Phone"));
    }
    if (const QString mail = textOf(txtemail); !mail.isEmpty())
        patient.Set("EmailAddress", mail);
    patient.Set("sex", cbosex->currentText());
    patient.Set("provider_id", providerId());
    patient.Set("archive", ckactive->isChecked() ? 0 : 1);
    patient.Update();
}

void frmnewpat::insertEpisode(const QString& id) {
    db::Recordset episode("Select * from incident_hx Where 0=1", Session().Connection, db::Lock::Optimistic);
    episode.AddNew();
    episode.Set("patient_id", id);
    episode.Set("incident_nbr", 1);
    episode.Set("provider_id", providerId());
    if (txtdic->IsValid())
        episode.Set("init_contact_date", txtdic->Date());
    episode.Update();
}

bool frmnewpat::wantsExport() const {
    return MsgBox(tr("Do you want to export %1, %2 to Fernhall?").arg(textOf(txtlname), textOf(txtfname)), YesNoBox,
                  QStringLiteral("Solvane")) == Answer::Yes;
}

void frmnewpat::exportPatient(const QString& id) {
    const SessionValues& session = Session();
    if (session.FHDatabaseId.isEmpty() || !(session.FHAutoExport || wantsExport()))
        return;
    ExportedPatient patient;
    patient.lastName = textOf(txtlname);
    patient.firstName = textOf(txtfname);
    patient.middleInitial = textOf(txtmi);
    patient.salutation = textOf(txtsal);
    patient.birthDate = birthDate();
    patient.initialContact = txtdic->Date();
    patient.address = txtaddress->StoredText();
    patient.city = textOf(txtcity);
    patient.state = textOf(txtstate);
    patient.zip = textOf(txtzip);
    patient.sex = cbosex->currentText();
    patient.homePhone = txthphone->Raw().trimmed();
    patient.workPhone = txtwphone->Raw().trimmed();
    patient.providerId = providerId();
    ExportPatientToFH({Session().Connection, session.FHConnectionString, session.FHDatabaseId}, id, patient);
}
