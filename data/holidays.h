#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "platform/database/connection.h"

/// The statement that HolidayOn reads.
QString HolidayStatement(QDate date);

/// The name of the holiday on a date, one of that year or one that repeats every year; the first where there are
/// several. Throws DatabaseError.
std::optional<QString> HolidayOn(db::Connection& connection, QDate date);
