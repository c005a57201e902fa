#include "data/demo/random.h"

#include <numeric>

namespace demo {

namespace {

// FNV-1a: the standard library's hash differs between libraries.
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    return hash;
}

}  // namespace

Random::Random(std::uint64_t seed, std::string_view subject) : engine_(seed ^ hashOf(subject)) {}

// The distributions of the standard library also differ between libraries; the bias of a modulo is far below what
// anybody could see here.
int Random::between(int low, int high) {
    const auto range = static_cast<std::uint64_t>(high - low) + 1;
    return low + static_cast<int>(engine_() % range);
}

std::size_t Random::weighted(const std::vector<int>& weights) {
    int left = between(1, std::accumulate(weights.begin(), weights.end(), 0));
    std::size_t index = 0;
    while (left > weights[index])
        left -= weights[index++];
    return index;
}

}  // namespace demo
