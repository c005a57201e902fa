#include "tests/walk/walker.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <QApplication>
#include <QTimer>

namespace walk {

namespace {

constexpr int Views = 5;  ///< A user without a pair has no sixth.
constexpr int DaysToLookAt = 3;
constexpr int MostDetours = 24;  ///< How often a way that is known is taken for what may be new at its end.
constexpr int Failed = 3;
constexpr int PollMilliseconds = 20;
constexpr int LongerThanAPress = 130;  ///< Milliseconds; a button that is pressed by its letter clicks after 100.

void tell(const QString& text) {
    std::printf("walk: %s\n", qUtf8Printable(text));
    std::fflush(stdout);
}

/// The views in the order of their keys, Ctrl+1 to Ctrl+6.
const QStringList& mainPlaces() {
    static const QStringList places{QStringLiteral("mdisched/frmsched"), QStringLiteral("mdisched/frmweekv"),
                                    QStringLiteral("mdisched/frmmtv"),   QStringLiteral("mdisched/frmall"),
                                    QStringLiteral("mdisched/frmrooms"), QStringLiteral("mdisched/frmFHAppts")};
    return places;
}

bool isMain(const Place& place) {
    return place.name.startsWith(QLatin1String("mdisched/"));
}

}  // namespace

Plan Plan::FromEnvironment() {
    const auto number = [](const char* name, int fallback) {
        bool given = false;
        const int value = qEnvironmentVariableIntValue(name, &given);
        return given ? value : fallback;
    };
    const Plan usual;
    return {static_cast<unsigned>(number("SVS_WALK_SEED", static_cast<int>(usual.seed))),
            number("SVS_WALK_SECONDS", usual.seconds), number("SVS_WALK_ROUNDS", usual.rounds),
            number("SVS_WALK_HOME", usual.home)};
}

Walker::Walker(const Plan& plan) : plan_(plan), chance_(plan.seed) {
    await();
}

void Walker::await() {
    if (WhatIsWrong().isEmpty()) {
        clock_.start();
        step();
        return;
    }
    QTimer::singleShot(PollMilliseconds, this, &Walker::await);
}

void Walker::step() {
    if (const QString wrong = WhatIsWrong(); !wrong.isEmpty()) {
        tell(QStringLiteral("wrong, ") + wrong);
        std::_Exit(Failed);
    }
    KeepOpen(true);
    const Place place = PlaceInFront(chance_);
    learn(place);
    leaving_ = leaving_ || clock_.elapsed() > plan_.seconds * 1000LL;
    if (const Deed* deed = leaving_ ? nullptr : choose(place))
        doIt(place.name, *deed);
    else
        leave(place);
}

void Walker::learn(const Place& place) {
    if (lastPlace_ != place.name && !lastDeed_.isEmpty())
        places_[lastPlace_][lastDeed_].leadsTo = place.name;
    Deeds& known = places_[place.name];
    for (const Deed& deed : place.deeds)
        known.try_emplace(deed.name);
    for (const Deed& deed : place.exits)
        known.try_emplace(deed.name);
}

const Deed* Walker::choose(const Place& place) {
    if (plan_.home > 0 && isMain(place) && place.name != mainPlaces().at(plan_.home - 1))
        return wayToView(plan_.home);
    if (plan_.rounds == 0) {
        const bool goes = !place.exits.empty() && std::uniform_int_distribution<int>(0, 4)(chance_) == 0;
        return anyOf(goes || place.deeds.empty() ? place.exits : place.deeds);
    }
    if (const Deed* deed = leastTried(place, place.deeds);
        deed != nullptr && places_[place.name][deed->name].tries < plan_.rounds) {
        viewsInARowWithoutNews_ = 0;
        return deed;
    }
    if (const Deed* deed = wayToSomethingNew(place))
        return deed;
    return isMain(place) ? wayToNextView(place) : leastTried(place, place.exits);
}

const Deed* Walker::anyOf(const std::vector<Deed>& among) {
    if (among.empty())
        return nullptr;
    return &among[std::uniform_int_distribution<std::size_t>(0, among.size() - 1)(chance_)];
}

const Deed* Walker::leastTried(const Place& place, const std::vector<Deed>& among) {
    const Deeds& known = places_[place.name];
    const auto least = std::min_element(among.begin(), among.end(), [&known](const Deed& left, const Deed& right) {
        return known.at(left.name).tries < known.at(right.name).tries;
    });
    return least == among.end() ? nullptr : &*least;
}

const Deed* Walker::wayToSomethingNew(const Place& place) {
    const Deeds& known = places_[place.name];
    for (const Deed& deed : place.deeds) {
        const Tally& tally = known.at(deed.name);
        if (!tally.leadsTo.isEmpty() && tally.leadsTo != place.name &&
            !tally.leadsTo.startsWith(QLatin1String("mdisched/")) && tally.tries < MostDetours &&
            hasSomethingNew(tally.leadsTo))
            return &deed;
    }
    return nullptr;
}

bool Walker::hasSomethingNew(const QString& place) const {
    const auto known = places_.find(place);
    return known != places_.end() && std::any_of(known->second.begin(), known->second.end(),
                                                 [this](const auto& deed) { return deed.second.tries < plan_.rounds; });
}

// On another day, where there may be what a walk has deleted on this one.
const Deed* Walker::wayToNextView(const Place& place) {
    if (++viewsInARowWithoutNews_ > Views * DaysToLookAt)
        return nullptr;
    return wayToView(static_cast<int>((mainPlaces().indexOf(place.name) + 1) % Views) + 1);
}

const Deed* Walker::wayToView(int number) {
    nextView_ = {QStringLiteral("next view"),
                 Key(Qt::Key_0 + number, Qt::ControlModifier) + Key(Qt::Key_Right, Qt::AltModifier)};
    return &nextView_;
}

void Walker::doIt(const QString& place, const Deed& deed) {
    ++places_[place][deed.name].tries;
    lastPlace_ = place;
    lastDeed_ = deed.name;
    tell(QStringLiteral("%1 %2: %3").arg(++steps_).arg(place, deed.name));
    for (const std::function<void()>& event : deed.events)
        QTimer::singleShot(0, this, event);
    const int pause = std::discrete_distribution<int>({70, 20, 10})(chance_);
    const bool animated = deed.name.startsWith(QLatin1String("letter"));
    QTimer::singleShot(animated || pause == 2 ? LongerThanAPress : pause * PollMilliseconds, this, &Walker::step);
}

void Walker::tellCoverage() const {
    for (const auto& [place, deeds] : places_) {
        const auto done =
            std::count_if(deeds.begin(), deeds.end(), [](const auto& deed) { return deed.second.tries > 0; });
        tell(QStringLiteral("seen %1: %2 of %3").arg(place).arg(done).arg(deeds.size()));
    }
}

void Walker::leave(const Place& place) {
    if (!leaving_)
        tell(QStringLiteral("everything done"));
    leaving_ = true;
    if (!isMain(place)) {
        const Deed* out = anyOf(place.exits);
        doIt(place.name, out != nullptr ? *out : Deed{QStringLiteral("key Escape"), Key(Qt::Key_Escape)});
        return;
    }
    tellCoverage();
    KeepOpen(false);
    tell(QStringLiteral("done, %1 steps").arg(steps_));
    QTimer::singleShot(0, qApp, &QApplication::closeAllWindows);
}

}  // namespace walk
