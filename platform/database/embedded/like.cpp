#include "platform/database/embedded/like.h"

#include <algorithm>

#include "platform/database/embedded/textorder.h"

namespace db::embedded {

LikePattern::LikePattern(std::string_view pattern, char32_t escape) {
    while (!pattern.empty()) {
        const char32_t character = TakeCharacter(pattern);
        if (escape != 0 && character == escape && !pattern.empty())
            steps_.push_back({Step::Kind::One, FoldCharacter(TakeCharacter(pattern)), false, {}});
        else if (character == U'%')
            steps_.push_back({Step::Kind::AnyMany, 0, false, {}});
        else if (character == U'_')
            steps_.push_back({Step::Kind::AnyOne, 0, false, {}});
        else if (character == U'[')
            steps_.push_back(readSet(pattern));
        else
            steps_.push_back({Step::Kind::One, FoldCharacter(character), false, {}});
    }
}

/// A set that is never closed matches nothing.
LikePattern::Step LikePattern::readSet(std::string_view& rest) {
    Step step{Step::Kind::Set, 0, false, {}};
    if (!rest.empty() && rest.front() == '^') {
        step.outside = true;
        rest.remove_prefix(1);
    }
    while (!rest.empty()) {
        const char32_t first = TakeCharacter(rest);
        if (first == U']')
            return step;
        char32_t last = first;
        if (rest.size() >= 2 && rest[0] == '-' && rest[1] != ']') {
            rest.remove_prefix(1);
            last = TakeCharacter(rest);
        }
        step.ranges.push_back({FoldCharacter(first), FoldCharacter(last)});
    }
    step.kind = Step::Kind::Never;
    return step;
}

bool LikePattern::fits(const Step& step, char32_t character) {
    switch (step.kind) {
        case Step::Kind::One:
            return step.character == character;
        case Step::Kind::AnyOne:
            return true;
        case Step::Kind::Set: {
            const bool inside = std::any_of(step.ranges.begin(), step.ranges.end(), [character](const Range& range) {
                return character >= range.first && character <= range.last;
            });
            return inside != step.outside;
        }
        case Step::Kind::AnyMany:
        case Step::Kind::Never:
            break;
    }
    return false;
}

bool LikePattern::matches(const std::string_view* parts, std::size_t count) const {
    // The plain characters at the start decide nearly every row before anything is copied.
    thread_local std::u32string text;
    text.clear();
    std::size_t step = 0;
    bool plain = true;
    for (std::size_t i = 0; i < count; ++i) {
        std::string_view rest = parts[i];
        while (!rest.empty()) {
            const char32_t character = FoldCharacter(TakeCharacter(rest));
            plain = plain && step < steps_.size() && steps_[step].kind == Step::Kind::One;
            if (plain && steps_[step++].character != character)
                return false;
            if (plain && step + 1 == steps_.size() && steps_[step].kind == Step::Kind::AnyMany)
                return true;
            text.push_back(character);
        }
    }
    return matchesFolded(text);
}

/// Walks pattern and text with one place to come back to: the last % and how far its run of characters reached.
bool LikePattern::matchesFolded(std::u32string_view text) const {
    const std::size_t last = text.find_last_not_of(U' ');
    const std::size_t textEnd = last == std::u32string_view::npos ? 0 : last + 1;
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t at = 0;
    std::size_t step = 0;
    std::size_t manyStep = none;
    std::size_t manyEnd = 0;
    for (;;) {
        if (step == steps_.size() && at >= textEnd)
            return true;
        if (step < steps_.size() && steps_[step].kind == Step::Kind::AnyMany) {
            manyStep = ++step;
            manyEnd = at;
        } else if (step < steps_.size() && at < text.size() && fits(steps_[step], text[at])) {
            ++step;
            ++at;
        } else if (manyStep != none && manyEnd < text.size()) {
            step = manyStep;
            at = ++manyEnd;
        } else {
            return false;
        }
    }
}

std::string LikePrefix(std::string_view pattern) {
    return std::string(pattern.substr(0, pattern.find_first_of("%_[")));
}

}  // namespace db::embedded
