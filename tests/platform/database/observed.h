#pragma once

#include <initializer_list>
#include <optional>
#include <QStringList>
#include <vector>

#include "platform/database/write.h"

/// The values of some columns as one text: "Null" for null, and "(none)" for no row.
QString valuesOf(const std::optional<db::RowState>& row, std::initializer_list<const char*> columns);

/// The rows of writes to Visits and VisitGuests, each as "key: before -> after" in the columns that the tests write to.
QStringList told(const std::vector<db::Write>& writes);
