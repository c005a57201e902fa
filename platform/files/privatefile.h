#pragma once

#include <sys/types.h>
#include <QFileDevice>
#include <QString>

// Files that hold patients or a password are their owner's alone, from the moment they are made. What a practice shares
// is as its folder says: in a folder that a group may write to, and in the folders of a central installation, a file is
// for whom the folder is for.

namespace files {

/// Makes the files in a folder be for whom the folder is for.
void Share(const QString& folder);
/// Forgets what was shared; for tests.
void ShareNothing();

/// Makes an empty file that nobody else can ever have opened; one that is there stays as it is, less what others may do
/// with it. False where it can be neither made nor found.
bool MakePrivate(const QString& file);
/// Takes from others what they may not do with a file. One that belongs to somebody else, or is missing, stays.
void KeepPrivate(const QString& file);
/// Makes a folder, with those above it, that only its owner enters; one that is there stays. False where it cannot be
/// made.
bool MakePrivateFolder(const QString& folder);

/// Takes a folder that is this user's alone from all others. One that belongs to somebody else, that others may write
/// to, or that is shared, stays.
void KeepPrivateFolder(const QString& folder);

/// What others may do with a file of this folder.
[[nodiscard]] QFileDevice::Permissions PermissionsIn(const QString& folder);

/// While it lives, this program makes files that are its owner's alone.
class OwnerOnly {
  public:
    OwnerOnly();
    ~OwnerOnly();
    OwnerOnly(const OwnerOnly&) = delete;
    OwnerOnly& operator=(const OwnerOnly&) = delete;

  private:
    mode_t before_;
};

}  // namespace files
