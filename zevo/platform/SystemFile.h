#ifndef ZEVO_PLATFORM_SYSTEMFILE_H_
#define ZEVO_PLATFORM_SYSTEMFILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace zevo {

// The system's calls on files, alike on every system. Names are UTF-8 without a NUL. What fails gives -1 and leaves the
// reason in errno; a call that a signal interrupts is made again.

enum class OpenMode {
  kRead,
  kReadAtOnce,  ///< does not wait until somebody writes to a pipe
  kWrite,       ///< a file that is there
  kReplace,     ///< created, or emptied when it is there
  kCreate,      ///< must not be there
};

struct FileStatus {
  bool exists = false;
  bool regular = false;  ///< neither a folder nor a device
  unsigned mode = 0;     ///< who may do what; 0 where the system keeps that elsewhere
};

FileStatus StatusOf(const std::string& name);

/// 0 when the file may be written, by what protects the file itself.
int CheckWritable(const std::string& name);

/// The descriptor of the open file.
int OpenDescriptor(const std::string& name, OpenMode mode);

/// Whether an open file is neither a folder, a pipe nor a device.
bool IsRegular(int descriptor);

/// Reads some bytes; 0 only at the end of the file.
std::ptrdiff_t ReadSome(int descriptor, char* bytes, size_t size);
/// Writes some of the bytes.
std::ptrdiff_t WriteSome(int descriptor, const char* bytes, size_t size);

/// Gives an open file the mode of another's status.
int SetMode(int descriptor, unsigned mode);

/// Waits until the bytes are on the disk.
int FlushToDisk(int descriptor);
int CloseDescriptor(int descriptor);

int DeleteName(const std::string& name);
/// Another file of the new name is replaced, in one step.
int ChangeName(const std::string& from, const std::string& to);
/// Puts names that changed in a folder on the disk, where the system can be told to and as far as it does.
void FlushFolder(const std::string& name);

/// The name that opens the process's standard input, whatever stands behind it; empty where there is none.
std::string_view StandardInputName();

unsigned ProcessNumber();

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SYSTEMFILE_H_
