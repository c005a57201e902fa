#pragma once

#include <atomic>
#include <list>
#include <thread>

/// A long line to a server: hands on what is sent to a port of this computer, each question the given time later, and
/// counts how often the caller asks and waits. A login is part of that.
class SlowLine {
  public:
    /// To `port` of 127.0.0.1.
    SlowLine(int port, int millisecondsPerTrip);
    ~SlowLine();
    SlowLine(const SlowLine&) = delete;
    SlowLine& operator=(const SlowLine&) = delete;

    [[nodiscard]] int port() const { return port_; }
    [[nodiscard]] int trips() const { return trips_; }

  private:
    void serve();
    void converse(int caller);

    int serverPort_;
    int delay_;
    int listener_ = -1;
    int port_ = 0;
    std::atomic<int> trips_{0};
    std::atomic<bool> ending_{false};
    std::list<std::thread> calls_;
    std::thread thread_;
};
