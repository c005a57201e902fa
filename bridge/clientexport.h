#pragma once

#include <QDate>
#include <QString>

#include "platform/database/connection.h"

/// Both databases of an export.
struct ExportLink {
    db::Connection& main;
    QString companionText;  ///< The connection text of the companion.
    QString fhDatabase;     ///< The identity of the companion, which its pairs carry.
};

/// A patient as the companion is told of them.
struct ExportedPatient {
    QString lastName, firstName, middleInitial, salutation;
    QDate birthDate, initialContact;  ///< Invalid: left alone.
    QString address;                  ///< Lines end with carriage return and line feed.
    QString city, state, zip;
    QString sex;                   ///< "Male" or "Female"
    QString homePhone, workPhone;  ///< Digits, or as typed where they fit no telephone mask.
    QString providerId;            ///< Of the main database.
};

/// Writes a patient as a client of the companion: the client paired with the patient, or a new one, which is paired
/// with them. The client and the pair are stored both or not at all. False when there was no export: the provider has
/// no pair, or a step failed; the user has been told which.
///
/// A telephone that is no number (letters, or too many digits) goes over as it was typed, and a work telephone then has
/// no extension. A number of fewer than ten digits has zeros in front, as everywhere in the companion.
bool ExportPatientToFH(const ExportLink& link, const QString& patientId, const ExportedPatient& patient);
