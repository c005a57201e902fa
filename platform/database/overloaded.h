#pragma once

namespace db {

/// One function object out of several, for std::visit: each value goes to the one that takes its type.
template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace db
