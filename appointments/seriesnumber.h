#pragma once

#include <QDate>
#include <QString>

/// The statement that reads which appointment of its series one is, in the order of time. For a caller that reads it
/// together with others.
[[nodiscard]] QString SeriesNumberStatement(int key, QDate date, int start);
/// Returns "5 of 12" for an appointment of a series, counted among those that exist. The text is empty for one that
/// belongs to no series. Throws db::DatabaseError.
[[nodiscard]] QString SeriesNumberText(int key, QDate date, int start);
