#pragma once

#include <sys/types.h>
#include <QFileDevice>
#include <QString>

// Access to the program's files. A file with patients or a password is readable by its owner alone, from the moment it
// is created. A shared file has the permissions of its folder: that holds in a folder that a group may write to, and in
// the folders of a central installation.

namespace files {

/// Marks a folder as shared: files in it get the folder's permissions for others.
void Share(const QString& folder);
/// Forgets all shared folders, for tests.
void ShareNothing();

/// Creates an empty file that nobody else can have opened before. An existing file keeps its contents and loses the
/// permissions that others must not have. Returns false where the file neither exists nor can be created.
bool MakePrivate(const QString& file);
/// Removes the permissions that others must not have on a file. A missing file, and one of another owner, stay as they
/// are.
void KeepPrivate(const QString& file);
/// Creates a folder that only its owner can enter, with the folders above it. An existing one stays as it is. Returns
/// false where it cannot be created.
bool MakePrivateFolder(const QString& folder);

/// Creates a folder in which files are as in the folder above it: one that only its owner can enter, or in a shared
/// folder one that is shared with the same people. An existing one stays as it is. Returns false where it cannot be
/// created.
bool MakeFolderIn(const QString& above, const QString& name);

/// Closes a folder of this user's own to all others. A folder that belongs to somebody else, that others may write to,
/// or that is shared, stays as it is.
void KeepPrivateFolder(const QString& folder);

/// Returns the permissions for a file in this folder.
[[nodiscard]] QFileDevice::Permissions PermissionsIn(const QString& folder);

/// While the object lives, the program creates files for their owner alone.
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
