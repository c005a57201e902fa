#pragma once

class mdisched;

/// Answers what the main window asks for of rooms that it does not know: the list of those who have checked in, and,
/// once a view is open, the series that an earlier run has left half booked.
void WireMainWindow(mdisched& window);
