#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "bridge/clientexport.h"
#include "people/addressedit.h"
#include "people/frmnewpat.h"
#include "people/randomid.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int LowestId = 10000;
constexpr int HighestId = 99999999;

// A pasted line end does not belong in a name.
QString textOf(const QLineEdit* field) {
    return field->text().simplified();
}

}  // namespace

bool frmnewpat::dupname(const QString& last, const QString& first) {
    const db::Recordset patients(
        db::Sql("SELECT * From patient_info WHERE Upper(last_name) = '{}' AND Upper(first_name) = '{}'", last.toUpper(),
                first.toUpper()),
        Session().Connection);
    return !patients.Eof();
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
    Session().NewPatientId = id;
    AuditLog(Session().UID, QStringLiteral("Patient"), QStringLiteral("New Patient"), {},
             QStringLiteral("Added new patient - %1, %2").arg(textOf(txtlname), textOf(txtfname)));
    exportPatient(id);
    dirty = false;
    return true;
}

bool frmnewpat::mayAddName() const {
    if (!dupname(textOf(txtlname), textOf(txtfname)))
        return true;
    const Answer answer =
        MsgBox(QStringLiteral("%1, %2 is already in the database. Continue?").arg(textOf(txtlname), textOf(txtfname)),
               YesNoBox, QStringLiteral("Duplicate Name"));
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
