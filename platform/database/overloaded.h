#pragma once

namespace db {

/// Makes one function object out of several, for std::visit. Each value goes to the one that takes its type.
template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace db
