#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// The keys that the practice's rows have in the companion database.
struct Companion {
    QString databaseId;          ///< Its DBID.
    std::vector<int> providers;  ///< The companion's key for each provider; 0 where not paired.
    std::vector<int> clients;    ///< The companion's key for each patient; 0 where not paired.
    std::vector<int> services;   ///< The key of the transaction code for each service.
    int payment = 0;             ///< The key of a transaction code that is no charge.
    int unpaired = 0;            ///< The provider who works only in the companion.
    std::vector<int> strangers;  ///< The clients whom the main database does not have.
};

/// Writes the companion's providers, clients with their parties, shares and insurance, transaction codes, look-up lists
/// and identity. Ten of fourteen providers are paired, and every patient of REED and LANE.
[[nodiscard]] Companion WriteCompanion(const Practice& practice, db::Connection& companion);

/// Writes the pairs of providers (list 1) and of patients and clients (list 4) into the main database.
void WritePairs(const Practice& practice, const Companion& companion, db::Connection& main);

/// Writes the appointments and payments of the companion: those of paired providers and patients, with status S while
/// open and linked to their sessions when charged, and some of the provider and the clients who are in no pair.
void WriteCompanionSchedule(const Practice& practice, const Companion& keys, const std::vector<Booking>& bookings,
                            db::Connection& companion);

/// Writes the events of the companion's calendar, and series of every pattern with exceptions.
void WriteCompanionEvents(const Practice& practice, const Companion& keys, db::Connection& companion);

}  // namespace demo
