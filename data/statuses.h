#pragma once

#include "platform/calendar/item.h"

/// What a code of `appointments.ncolor` says, in each of the places that tell it. The places differ in more than
/// letters, and are meant to: what one of them has no word for is empty there.
struct Status {
    int code = 0;                        ///< See ncolor.
    StatusMark mark = StatusMark::None;  ///< By which a card and a list tell the status without its colour.
    const char* word = "";               ///< On the calendar and in the editor's list.
    const char* inDetails = "";          ///< In the panel beside the day; both cancellations read alike there.
    const char* inFind = "";             ///< In the list of Find, which knows Tentative by the legend's code alone.
    const char* inLegend = "";           ///< In the legend of the colours.
};

/// Without a mark and a word for a code that is no status, such as the colour of an appointment type.
[[nodiscard]] const Status& StatusOf(int code);
