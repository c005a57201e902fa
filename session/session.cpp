#include "session/session.h"

#include <memory>

namespace {

std::unique_ptr<SessionValues>& holder() {
    static auto values = std::make_unique<SessionValues>();
    return values;
}

}  // namespace

SessionValues& Session() {
    return *holder();
}

void ResetSession() {
    holder() = std::make_unique<SessionValues>();
}
