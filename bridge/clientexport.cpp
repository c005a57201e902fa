#include "bridge/clientexport.h"

#include <algorithm>
#include <optional>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"

namespace {

constexpr int PhoneDigits = 10;
constexpr int AreaDigits = 3;
constexpr int LocalDigits = 4;
/// More digits than any telephone with an extension has.
constexpr int MostDigits = 20;
/// The billing rule that the companion gives to a new client.
constexpr int StandardBillingDelay = 2;

/// Returns the digits of a number in any notation, or nothing for a text that is no number.
std::optional<QString> digitsOf(const QString& phone) {
    QString digits;
    for (const QChar c : phone) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            digits += c;
        else if (c.isLetterOrNumber() && (c.toLower() != QLatin1Char('x') || digits.isEmpty()))
            return std::nullopt;
    }
    if (digits.isEmpty() || digits.size() > MostDigits)
        return std::nullopt;
    return digits;
}

/// Returns a number in the form "(000) 000-0000".
QString phoneText(const QString& digits) {
    const QString number = digits.rightJustified(PhoneDigits, QLatin1Char('0'));
    return QStringLiteral("(%1) %2-%3")
        .arg(number.chopped(PhoneDigits - AreaDigits), number.right(PhoneDigits - AreaDigits).left(AreaDigits),
             number.right(LocalDigits));
}

void writePerson(db::Recordset& client, const ExportedPatient& patient) {
    client.Set("clntactiveind", 1);
    client.Set("clntlastname", patient.lastName);
    client.Set("clntfirstname", patient.firstName);
    client.Set("clntmiddleinitial", patient.middleInitial);
    client.Set("clntMr", patient.salutation);
    if (patient.birthDate.isValid())
        client.Set("clntbirthdate", patient.birthDate);
    if (patient.initialContact.isValid()) {
        client.Set("ClntFirstVisitDate", patient.initialContact);
        client.Set("ClntIllnessDate", patient.initialContact);
    }
}

void writeAddress(db::Recordset& client, const ExportedPatient& patient) {
    const QString lineEnd = QStringLiteral("\r\n");
    const qsizetype split = patient.address.indexOf(lineEnd);
    client.Set("clntaddressone", split < 0 ? patient.address : patient.address.left(split));
    client.Set("clntaddresstwo", split < 0 ? QString() : patient.address.mid(split + lineEnd.size()));
    client.Set("clntcity", patient.city);
    client.Set("clntstate", patient.state);
    client.Set("clntzipcode", patient.zip);
    client.Set("clntSex", patient.sex.left(1).toUpper());
}

void writePhones(db::Recordset& client, const ExportedPatient& patient) {
    const std::optional<QString> home = digitsOf(patient.homePhone);
    client.Set("clnthomephone", home ? phoneText(*home) : patient.homePhone);
    const std::optional<QString> work = digitsOf(patient.workPhone);
    client.Set("clntworkphone", work ? phoneText(work->left(PhoneDigits)) : patient.workPhone);
    client.Set("clntworkext", work ? work->mid(PhoneDigits) : QString());
}

void writeBilling(db::Recordset& client, int fhProvider) {
    client.Set("ProvId", fhProvider);
    for (const char* flag : {"ClntAutoAccidentInd", "ClntWorkAccidentInd", "ClntOtherAccidentInd"})
        client.Set(flag, 0);
    for (const char* flag : {"ClntSignatureInd", "ClntAssignBenefitsInd", "ClntAcceptAssignmentInd"})
        client.Set(flag, 1);
    client.Set("ClntPrintBill", 2);
    client.Set("ClntPrintChargesOnlyInd", 0);
    client.Set("ClntPrintLateMessagesInd", 1);
    client.Set("ClntPrintCPTInd", 0);
    client.Set("ClntPrintClntNameInd", 1);
    client.Set("ClntPrintAxisInd", 1);
    client.Set("ClntPrintFirstVisitInd", 0);
    client.Set("ClntPrintProvNameInd", 1);
    client.Set("BlayId", StandardBillingDelay);
    client.Set("ClntFeeChangeSessions", 0);
    client.Set("DateCreated", Now());
    client.Set("LastModifiedDate", Now());
    client.Set("UserIdCreated", 0);
    client.Set("UserIdLastModified", 0);
}

/// Returns the key of the companion's side of a pair, or nothing without a pair.
std::optional<int> pairedWith(const ExportLink& link, const QString& statement) {
    const db::Recordset pair(statement, link.main);
    return pair.Eof() ? std::nullopt : std::optional(static_cast<int>(pair["FHDataValue"].integer()));
}

std::optional<int> companionProvider(const ExportLink& link, const QString& providerId) {
    return pairedWith(
        link, db::Sql("Select * from FHDataPairs Where FHDatabase = '{}' AND FHDataList = 1 AND SVDataValue = '{}'",
                      link.fhDatabase, providerId));
}

int companionClient(const ExportLink& link, const QString& patientId) {
    return pairedWith(
               link,
               db::Sql("Select * from FHDataPairs Where FHDatabase = '{}' AND FHDataList = 4 AND SVDataValue = '{}'",
                       link.fhDatabase, patientId))
        .value_or(0);
}

void writeClient(const ExportLink& link, db::Connection& companion, const QString& patientId, int fhProvider,
                 const ExportedPatient& patient) {
    db::Recordset client(db::Sql("Select * from clients Where ClntId = {}", companionClient(link, patientId)),
                         companion, db::Lock::Optimistic);
    const bool isNew = client.Eof();
    if (isNew)
        client.AddNew();
    writePerson(client, patient);
    writeAddress(client, patient);
    writePhones(client, patient);
    writeBilling(client, fhProvider);
    client.Update();
    if (isNew)
        link.main.Execute(db::Sql(
            "Insert into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (4, '{}', {}, '{}')",
            link.fhDatabase, client["ClntId"].integer(), patientId));
}

}  // namespace

bool ExportPatientToFH(const ExportLink& link, const QString& patientId, const ExportedPatient& patient) {
    try {
        const std::optional<int> fhProvider = companionProvider(link, patient.providerId);
        if (!fhProvider) {
            MsgBox(
                QStringLiteral(
                    "Unable to export patient to Fernhall. The selected provider for this patient does not exist in Fernhall. Add provider to Fernhall and try again."),
                ExclamationBox, QStringLiteral("Solvane"));
            return false;
        }
        db::Connection companion;
        companion.Open(link.companionText);
        db::InTransaction(link.main, [&] {
            db::InTransaction(companion, [&] { writeClient(link, companion, patientId, *fhProvider, patient); });
        });
        return true;
    } catch (const db::DatabaseError& error) {
        MsgBox(QStringLiteral("Unable to export patient to Fernhall. ") + error.description, ErrorBox,
               QStringLiteral("Error"));
        return false;
    }
}
