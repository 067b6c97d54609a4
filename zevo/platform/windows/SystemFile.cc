#include <zevo/platform/SystemFile.h>

#include <windows.h>
// After windows.h.
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <zevo/platform/windows/WideText.h>

#include <algorithm>
#include <cerrno>

namespace zevo {
namespace {

// The run-time library takes sizes of 31 bits.
unsigned OneCall(size_t size) { return static_cast<unsigned>(std::min(size, size_t{1} << 30)); }

int FlagsOf(OpenMode mode) {
  switch (mode) {
    case OpenMode::kRead:
    case OpenMode::kReadAtOnce:
      return _O_RDONLY;
    case OpenMode::kWrite:
      return _O_WRONLY;
    case OpenMode::kReplace:
      return _O_WRONLY | _O_CREAT | _O_TRUNC;
    case OpenMode::kCreate:
      return _O_WRONLY | _O_CREAT | _O_EXCL;
  }
  return _O_RDONLY;
}

int ReasonOf(DWORD systemError) {
  switch (systemError) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return ENOENT;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return EACCES;
    case ERROR_INVALID_NAME:
      return EINVAL;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    default:
      return EIO;
  }
}

int FailUnless(bool success) {
  if (success) return 0;
  errno = ReasonOf(GetLastError());
  return -1;
}

}  // namespace

FileStatus StatusOf(const std::string& name) {
  const DWORD attributes = GetFileAttributesW(WideFromUtf8(name).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return {};
  return {.exists = true, .regular = (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0};
}

int CheckWritable(const std::string& name) { return _waccess(WideFromUtf8(name).c_str(), W_OK); }

int OpenDescriptor(const std::string& name, OpenMode mode) {
  return _wopen(WideFromUtf8(name).c_str(), FlagsOf(mode) | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

bool IsRegular(int descriptor) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the run-time library has handles as numbers.
  return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))) == FILE_TYPE_DISK;
}

std::ptrdiff_t ReadSome(int descriptor, char* bytes, size_t size) { return _read(descriptor, bytes, OneCall(size)); }

std::ptrdiff_t WriteSome(int descriptor, const char* bytes, size_t size) {
  return _write(descriptor, bytes, OneCall(size));
}

int SetMode(int, unsigned) { return 0; }

int FlushToDisk(int descriptor) { return _commit(descriptor); }

int CloseDescriptor(int descriptor) { return _close(descriptor); }

int DeleteName(const std::string& name) { return FailUnless(DeleteFileW(WideFromUtf8(name).c_str()) != 0); }

// ReplaceFile would keep more of the old file's attributes, but may leave no file of the name at all when it fails.
int ChangeName(const std::string& from, const std::string& to) {
  const std::wstring wide_from = WideFromUtf8(from);
  const std::wstring wide_to = WideFromUtf8(to);
  // Scanners of viruses and indexers hold a file for a moment after it was written.
  constexpr int kAttempts = 20;
  constexpr DWORD kMilliseconds = 10;
  bool moved = false;
  for (int attempt = 0; !moved && attempt < kAttempts; ++attempt) {
    if (attempt > 0) Sleep(kMilliseconds);
    moved = MoveFileExW(wide_from.c_str(), wide_to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    const DWORD reason = GetLastError();
    if (reason != ERROR_ACCESS_DENIED && reason != ERROR_SHARING_VIOLATION) break;
  }
  return FailUnless(moved);
}

void FlushFolder(const std::string&) {}

std::string_view StandardInputName() { return {}; }

unsigned ProcessNumber() { return GetCurrentProcessId(); }

}  // namespace zevo
