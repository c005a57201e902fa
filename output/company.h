#pragma once

#include <QString>

/// The practice's own details.
struct Company {
    QString emailaddress;  ///< The sender of its messages. It is empty where none is set.
};

/// Reads the row of the practice's details. Without the row they are empty. Throws DatabaseError.
[[nodiscard]] Company GetCompanyInfo();
