#pragma once

class QSplitter;

/// Gives the panes of a splitter the sizes that the user chose earlier, and keeps the sizes that the user chooses from
/// now on, in the user's own settings under `key`. Returns whether there were sizes to restore.
bool KeepSplitter(QSplitter& splitter, const char* key);
