#pragma once

/// The busy pointer for as long as it lives. Message boxes and forms shown meanwhile have the normal pointer.
class BusyPointer {
  public:
    BusyPointer();
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};
