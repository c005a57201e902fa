#pragma once

#include <map>
#include <optional>
#include <QDate>
#include <QSet>
#include <QString>
#include <utility>

#include "appointments/waitrule.h"

/// When the providers work, as ProvSched holds it. Of a weekday with several rows the first counts. A weekday without a
/// row, or whose hours begin at 0, is a day off. A provider without any row works in the hours of the day in the
/// preferences.
class WorkingHours {
  public:
    /// Reads the hours of all providers. Throws db::DatabaseError.
    [[nodiscard]] static WorkingHours Read();
    /// The statement that Read reads.
    [[nodiscard]] static QString Statement();

    /// Returns when the provider works on that date, in minutes since midnight; nothing on a day off. The case of the
    /// id does not matter.
    [[nodiscard]] std::optional<MinuteRange> On(const QString& provider, QDate date) const;

  private:
    QSet<QString> scheduled_;                              ///< The providers of whom there is a row, in upper case.
    std::map<std::pair<QString, int>, MinuteRange> days_;  ///< By provider in upper case and weekday; Sunday is 1.
};
