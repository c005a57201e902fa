#pragma once

#include <random>

#include "tests/walk/walkevents.h"

namespace walk {

using Chance = std::mt19937;

/// Something that a person can do at a window.
struct Deed {
    QString name;  ///< The same thing has the same name whenever it is found.
    Events events;
};

/// The window in front: a menu, a list that has popped up, a dialog, or the main window with its view.
struct Place {
    QString name;
    std::vector<Deed> deeds;
    /// Ways out; whoever wants to see everything takes them last.
    std::vector<Deed> exits;
};

/// What can be done now. Where on a widget, and what is typed, is left to chance.
[[nodiscard]] Place PlaceInFront(Chance& chance);

/// Lets the commands that end the program do nothing, or end it again. A view brings its own, so it is said anew for
/// each step.
void KeepOpen(bool keep);

/// What is wrong with the windows that are open; empty when nothing is.
[[nodiscard]] QString WhatIsWrong();

}  // namespace walk
