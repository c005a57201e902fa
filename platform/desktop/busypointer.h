#pragma once

/// Shows the busy pointer for as long as the object lives. Message boxes and forms shown meanwhile have the normal
/// pointer.
class BusyPointer {
  public:
    BusyPointer();
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};
