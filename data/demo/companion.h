#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// How the practice's rows stand in the companion database.
struct Companion {
    QString databaseId;          ///< Its DBID.
    std::vector<int> providers;  ///< By provider: the companion's key, 0 where not paired.
    std::vector<int> clients;    ///< By patient: the companion's key, 0 where not paired.
    std::vector<int> services;   ///< By service: the key of its transaction code.
    int payment = 0;             ///< The key of a transaction code that is no charge.
};

/// Writes the companion's providers, clients with their parties, shares and insurance, transaction codes, look-ups and
/// identity. Ten of fourteen providers are paired, and every patient of REED and LANE.
[[nodiscard]] Companion WriteCompanion(const Practice& practice, db::Connection& companion);

/// The pairs of providers (list 1) and of patients and clients (list 4), in the main database.
void WritePairs(const Practice& practice, const Companion& companion, db::Connection& main);

/// The companion's schedule: the appointments of paired providers and patients, open ones with status S and charged
/// ones, linked to their sessions; payments; events, and series of every pattern with exceptions.
void WriteCompanionSchedule(const Practice& practice, const Companion& keys, const std::vector<Booking>& bookings,
                            db::Connection& companion);

}  // namespace demo
