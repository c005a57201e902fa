#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <QStringList>

/// What the connections of this program send to a server while the object lives, a line for each way there and back.
class TripLog {
  public:
    TripLog();
    ~TripLog();
    TripLog(const TripLog&) = delete;
    TripLog& operator=(const TripLog&) = delete;

    [[nodiscard]] const QStringList& sent() const;
};

/// Whether a step asks the server no more often than that; if not, the failure lists what was sent.
[[nodiscard]] testing::AssertionResult TakesAtMost(int trips, const std::function<void()>& step);
