#pragma once

#include "followup/boardlist.h"
#include "followup/boardvisits.h"

/// Returns the card of a visit as it stands at this minute of the day, with the words of its place. The name is hidden
/// while names are hidden.
[[nodiscard]] BoardCard CardOf(const BoardVisit& visit, BoardPlace place, const QString& provider, int minute);

/// Whether all words of the search stand somewhere on the card. A hidden name is not searched.
[[nodiscard]] bool IsFound(const BoardCard& card, const QString& search);

/// Returns the heading of a place.
[[nodiscard]] QString TitleOf(BoardPlace place);
/// Returns what an empty place says.
[[nodiscard]] QString EmptyTextOf(BoardPlace place);
/// Returns what stands in a place, for its tip.
[[nodiscard]] QString MeaningOf(BoardPlace place);
