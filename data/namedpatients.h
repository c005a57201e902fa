#pragma once

#include <QDate>
#include <QSet>
#include <QString>

#include "platform/database/connection.h"

/// Whether a row of `appointments` with this `ncolor` names a patient; `hasPatient`: its `patientid` is filled. An
/// activity, unavailable time and a group never do.
[[nodiscard]] bool NamesPatient(int code, bool hasPatient);

/// Those of the keys (`nkeyid`) whose appointments are there and name no patient. Throws db::DatabaseError.
[[nodiscard]] QSet<qint64> KeysWithoutPatient(db::Connection& connection, const QSet<qint64>& keys);
/// The texts (`cappttext`) of the day's appointments that name no patient. Throws db::DatabaseError.
[[nodiscard]] QSet<QString> TextsWithoutPatient(db::Connection& connection, QDate date);
