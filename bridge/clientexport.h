#pragma once

#include <QDate>
#include <QString>

#include "platform/database/connection.h"

/// The two databases of an export.
struct ExportLink {
    db::Connection& main;
    QString companionText;  ///< The connection text of the companion.
    QString fhDatabase;     ///< The companion's identity, which its pairs carry.
};

/// The data of a patient that the companion receives.
struct ExportedPatient {
    QString lastName, firstName, middleInitial, salutation;
    QDate birthDate, initialContact;  ///< An invalid date leaves the companion's date unchanged.
    QString address;                  ///< Its lines end with carriage return and line feed.
    QString city, state, zip;
    QString sex;                   ///< "Male" or "Female"
    QString homePhone, workPhone;  ///< The digits, or the text as typed where it fits no telephone mask.
    QString providerId;            ///< The provider's id in the main database.
};

/// Writes a patient as a client of the companion: the client that is paired with the patient, or a new one, which is
/// then paired. A failure of any step takes back both the client and the pair; only the commit of the pair, which comes
/// last, can fail alone. Returns false when there was no export, because the provider has no pair or a step failed. The
/// user has then been told the reason.
///
/// A telephone that is no number (letters, or too many digits) is written as it was typed, and a work telephone then
/// has no extension. A number of fewer than ten digits is filled with zeros in front, as everywhere in the companion.
bool ExportPatientToFH(const ExportLink& link, const QString& patientId, const ExportedPatient& patient);
