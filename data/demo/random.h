#pragma once

#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace demo {

/// A stream of random choices. It is the same on every computer for a given seed and subject. Each subject of the
/// practice uses a stream of its own, so that a change in one leaves the rows of the others unchanged.
class Random {
  public:
    Random(std::uint64_t seed, std::string_view subject);

    /// Returns a whole number from low to high, both included.
    int between(int low, int high);
    /// Returns true in `percent` of 100 cases.
    bool chance(int percent) { return between(1, 100) <= percent; }
    /// Returns an index into `weights`. Each index is as likely as its weight.
    std::size_t weighted(const std::vector<int>& weights);

    template <typename List>
    const auto& pick(const List& list) {
        return list[static_cast<std::size_t>(between(0, static_cast<int>(std::size(list)) - 1))];
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace demo
