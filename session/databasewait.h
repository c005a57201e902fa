#pragma once

/// From this call on, a long wait for the database in the window's own thread is shown in a small box, where the user
/// can give up by its button or Escape. While the box stands, the rest of the program does not react to keys, clicks
/// and timers, because the waiting routine is in the middle of its work. Windows are still painted. A modal window that
/// opens above the box after all can be used until it closes.
void ShowDatabaseWaits();
