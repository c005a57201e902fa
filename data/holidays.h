#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "platform/database/connection.h"

/// Returns the statement that HolidayOn reads.
QString HolidayStatement(QDate date);

/// Returns the name of the holiday on a date: one of that very date or one that repeats every year. Where there are
/// several, it is the first. Throws DatabaseError.
std::optional<QString> HolidayOn(db::Connection& connection, QDate date);
