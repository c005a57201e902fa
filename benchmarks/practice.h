#pragma once

#include <QString>
#include <vector>

#include "platform/database/connection.h"

/// A demo practice that the benchmarks read.
struct Practice {
    QString size;    ///< "10k", "1M": how many appointments it holds.
    QString folder;  ///< Holds practice.db.

    [[nodiscard]] QString databaseFile() const;
    /// The session of REED on this practice, its connection open.
    void openSession() const;
};

/// What svs_bench was given on its command line, in order: pairs "SIZE=FOLDER".
std::vector<Practice>& Practices();
