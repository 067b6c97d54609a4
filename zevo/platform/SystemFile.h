// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SYSTEMFILE_H_
#define ZEVO_PLATFORM_SYSTEMFILE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

// The system's calls on files, alike on every system. Names are UTF-8 without a NUL. What fails gives -1 and leaves the
// reason in errno; a call that a signal interrupts is made again.

enum class OpenMode {
  kRead,
  kReadAtOnce,     ///< does not wait until somebody writes to a pipe
  kWrite,          ///< a file that is there
  kReplace,        ///< created, or emptied when it is there
  kCreate,         ///< must not be there
  kCreatePrivate,  ///< the same, for nobody else to open
};

struct FileStatus {
  bool exists = false;
  bool denied = false;   ///< whether it exists is not known: a folder on its path may not be searched
  bool regular = false;  ///< neither a folder nor a device
  // Owner, group and permissions; 0 where the system has them in another form.
  unsigned mode = 0;
  unsigned owner = 0;
  unsigned group = 0;
};

FileStatus StatusOf(const std::string& name);

/// 0 when the permissions of the file itself allow writing to it.
int CheckWritable(const std::string& name);

/// The descriptor of the open file. The standard input, by its name, is read on from where it stands.
int OpenDescriptor(const std::string& name, OpenMode mode);

/// Whether an open file is neither a folder, a pipe nor a device.
bool IsRegular(int descriptor);

/// Where an open file that is regular is read next, counted from its beginning; -1 for what is not.
int64_t PositionOf(int descriptor);
/// Has it read and written there next.
int SeekTo(int descriptor, int64_t position);

/// What changes when an open file is written to.
struct FileStamp {
  int64_t size = 0;
  int64_t written = 0;  ///< when, in units of the system

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};
/// Zeros for what is not regular.
FileStamp StampOf(int descriptor);

/// A new file for this process alone, open for reading and writing, without a name: it is gone when it is closed. -1
/// also where the system has no such files.
int OpenNameless();

/// Reads some bytes; 0 only at the end of the file.
std::ptrdiff_t ReadSome(int descriptor, char* bytes, size_t size);
/// Writes some of the bytes.
std::ptrdiff_t WriteSome(int descriptor, const char* bytes, size_t size);

/// Gives an open file, which must be private until then, the owner and the group of another, as far as this process
/// may, and its permissions. Nobody gets more of them than the other file gave him: the permissions of its group are
/// given to the group of the open file only where that is the same group. The bits that run a program as its owner or
/// its group are never passed on.
int SetPermissions(int descriptor, const FileStatus& like);

/// Waits until the bytes are on the disk.
int FlushToDisk(int descriptor);
int CloseDescriptor(int descriptor);

int DeleteName(const std::string& name);
/// Another file of the new name is replaced, in one step.
int ChangeName(const std::string& from, const std::string& to);
/// Flushes the names in a folder to the disk, where the system can do that. Failures are ignored.
void FlushFolder(const std::string& name);

/// The name that opens the process's standard input, whatever stands behind it; empty where there is none.
std::string_view StandardInputName();

/// Some of a folder's names, at most so many; none when it cannot be read.
std::vector<std::string> NamesIn(const std::string& folder, bool (*wanted)(std::string_view name), size_t most);

// A process holds (locks) the temporary file that it writes for as long as it lives. A temporary file that nobody holds
// was left behind by a process that died, on this machine or another.

/// Holds a file that was just created, under a name that is used only once: gives a descriptor to be closed when the
/// file has its final name or none. Gives -1 with EEXIST where another process, just before, took the file for one left
/// behind, and -1 with another reason where the system cannot hold files.
int Hold(int descriptor, const std::string& name);
/// Renames and deletes a file that is held, or could not be (-1).
int ChangeHeldName(int hold, const std::string& from, const std::string& to);
int DeleteHeld(int hold, const std::string& name);
/// Deletes a regular file of this user that nobody holds.
void DeleteUnlessHeld(const std::string& name);

unsigned ProcessNumber();

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SYSTEMFILE_H_
