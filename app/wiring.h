#pragma once

class mdisched;

/// Connects the main window with forms that it does not know itself. CheckedInRequested opens the list of the patients
/// who have checked in, and BoardRequested today's board; both are reloaded when the database was opened again. When
/// the first view has opened, the series that an earlier run has left half booked are offered. The bar of the wait list
/// is made, and added below the notices.
void WireMainWindow(mdisched& window);
