#pragma once

/// From now on, who waits for the database in the window's own thread sees that in a small box, and can give up there
/// by its button or Escape. While it stands, nothing else of the program acts on what is typed, clicked or timed: the
/// routine that waits is in the middle of its work. Windows are painted all the same. Should something open a modal
/// window above the box after all, that one can be used until it closes.
void ShowDatabaseWaits();
