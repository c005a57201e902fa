#pragma once

#include <sys/resource.h>
#include <csignal>
#include <QtGlobal>

/// Files may not grow beyond this size while it lives: what a full disk looks like to whoever writes.
class FullDisk {
  public:
    explicit FullDisk(qint64 bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit full = before_;
        full.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
    void (*oldHandler_)(int);
};
