#pragma once

#include <QDate>
#include <QSet>
#include <QString>

#include "platform/database/connection.h"

/// Whether a row of `appointments` names a patient. `code` is its `ncolor`, and `hasPatient` means that its `patientid`
/// is filled. An activity, unavailable time and a group never name one.
[[nodiscard]] bool NamesPatient(int code, bool hasPatient);

/// Returns those of the keys (`nkeyid`) whose appointments exist and name no patient. Throws db::DatabaseError.
[[nodiscard]] QSet<qint64> KeysWithoutPatient(db::Connection& connection, const QSet<qint64>& keys);
/// Returns the texts (`cappttext`) of the day's appointments that name no patient. Throws db::DatabaseError.
[[nodiscard]] QSet<QString> TextsWithoutPatient(db::Connection& connection, QDate date);
