#pragma once

#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace demo {

/// A stream of random choices that is the same on every machine for a seed and a subject. Each subject of the practice
/// draws from a stream of its own, so that a change in one leaves the rows of the others as they were.
class Random {
  public:
    Random(std::uint64_t seed, std::string_view subject);

    /// A whole number from low to high, both included.
    int between(int low, int high);
    /// True in `percent` of 100 cases.
    bool chance(int percent) { return between(1, 100) <= percent; }
    /// An index into weights, each in proportion to its weight.
    std::size_t weighted(const std::vector<int>& weights);

    template <typename List>
    const auto& pick(const List& list) {
        return list[static_cast<std::size_t>(between(0, static_cast<int>(std::size(list)) - 1))];
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace demo
