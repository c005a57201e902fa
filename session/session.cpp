#include "session/session.h"

#include <memory>

#include "platform/database/readtogether.h"
#include "platform/desktop/questions.h"

namespace {

std::unique_ptr<SessionValues>& holder() {
    static auto values = std::make_unique<SessionValues>();
    return values;
}

// A user takes a while to answer a question, and other desks change the database meanwhile.
const bool forgetsBeforeQuestions = [] {
    BeforeQuestions(db::ReadTogether::ForgetAll);
    return true;
}();

}  // namespace

SessionValues& Session() {
    return *holder();
}

void ResetSession() {
    holder() = std::make_unique<SessionValues>();
}
