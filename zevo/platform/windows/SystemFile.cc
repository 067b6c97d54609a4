// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SystemFile.h>

#include <windows.h>
// After windows.h.
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <zevo/platform/windows/WideText.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

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
    case OpenMode::kCreatePrivate:
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
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
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

// Repeats a call while it fails because another process has the file open: virus scanners and indexers do so for a
// moment after a file was written.
template <class Call>
bool Patiently(Call&& call) {
  constexpr int kAttempts = 20;
  constexpr DWORD kMilliseconds = 10;
  for (int attempt = 1;; ++attempt) {
    if (call()) return true;
    const DWORD reason = GetLastError();
    if (attempt == kAttempts || (reason != ERROR_ACCESS_DENIED && reason != ERROR_SHARING_VIOLATION)) return false;
    Sleep(kMilliseconds);
  }
}

struct CloseSearch {
  void operator()(HANDLE search) const {
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
  }
};

HANDLE HandleOf(int descriptor) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
}

int DescriptorOf(HANDLE file, int flags) {
  if (FailUnless(file != INVALID_HANDLE_VALUE) != 0) return -1;
  const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(file), flags | _O_BINARY | _O_NOINHERIT);
  if (descriptor < 0) CloseHandle(file);
  return descriptor;
}

bool IsGoing(HANDLE file) {
  FILE_STANDARD_INFO info{};
  return GetFileInformationByHandleEx(file, FileStandardInfo, &info, sizeof info) != 0 && info.DeletePending != 0;
}

}  // namespace

FileStatus StatusOf(const std::string& name) {
  const DWORD attributes = GetFileAttributesW(WideFromUtf8(name).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return {};
  return {.exists = true, .regular = (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0};
}

int CheckWritable(const std::string& name) { return _waccess(WideFromUtf8(name).c_str(), W_OK); }

int OpenDescriptor(const std::string& name, OpenMode mode) {
  if (mode == OpenMode::kCreate || mode == OpenMode::kCreatePrivate) {
    // Needed by Hold, whose handle may delete the file.
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return DescriptorOf(CreateFileW(WideFromUtf8(name).c_str(), GENERIC_WRITE, kShared, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr),
                        FlagsOf(mode));
  }
  return _wopen(WideFromUtf8(name).c_str(), FlagsOf(mode) | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

bool IsRegular(int descriptor) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the run-time library has handles as numbers.
  return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))) == FILE_TYPE_DISK;
}

int64_t PositionOf(int descriptor) { return IsRegular(descriptor) ? _lseeki64(descriptor, 0, SEEK_CUR) : -1; }

int SeekTo(int descriptor, int64_t position) { return _lseeki64(descriptor, position, SEEK_SET) == position ? 0 : -1; }

FileStamp StampOf(int descriptor) {
  BY_HANDLE_FILE_INFORMATION about{};
  if (!IsRegular(descriptor) || GetFileInformationByHandle(HandleOf(descriptor), &about) == 0) return {};
  const auto joined = [](DWORD high, DWORD low) { return static_cast<int64_t>(uint64_t{high} << 32 | low); };
  return {.size = joined(about.nFileSizeHigh, about.nFileSizeLow),
          .written = joined(about.ftLastWriteTime.dwHighDateTime, about.ftLastWriteTime.dwLowDateTime)};
}

// Only a pipe is copied, and no name leads to one.
int OpenNameless() { return -1; }

std::ptrdiff_t ReadSome(int descriptor, char* bytes, size_t size) { return _read(descriptor, bytes, OneCall(size)); }

std::ptrdiff_t WriteSome(int descriptor, const char* bytes, size_t size) {
  return _write(descriptor, bytes, OneCall(size));
}

// A new file has the permissions that its folder hands down.
int SetPermissions(int, const FileStatus&) { return 0; }

int FlushToDisk(int descriptor) { return _commit(descriptor); }

int CloseDescriptor(int descriptor) { return _close(descriptor); }

int DeleteName(const std::string& name) { return FailUnless(DeleteFileW(WideFromUtf8(name).c_str()) != 0); }

// ReplaceFile would keep more of the old file's attributes, but may leave no file of the name at all when it fails.
int ChangeName(const std::string& from, const std::string& to) {
  const std::wstring wide_from = WideFromUtf8(from);
  const std::wstring wide_to = WideFromUtf8(to);
  return FailUnless(Patiently([&] {
    return MoveFileExW(wide_from.c_str(), wide_to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  }));
}

void FlushFolder(const std::string&) {}

std::string_view StandardInputName() { return {}; }

std::vector<std::string> NamesIn(const std::string& folder, bool (*wanted)(std::string_view name), size_t most) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW entry;
  const std::wstring all = WideFromUtf8(folder + "\\*");
  // FindExInfoBasic leaves out the short 8.3 names, which take the longest.
  const std::unique_ptr<void, CloseSearch> search(
      FindFirstFileExW(all.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr, 0));
  if (search.get() == INVALID_HANDLE_VALUE) return names;
  do {
    const std::string name = Utf8FromWide(entry.cFileName);
    if (wanted(name)) names.push_back(name);
  } while (names.size() < most && FindNextFileW(search.get(), &entry) != 0);
  return names;
}

// Opens a second handle that may delete the file and does not let others do so. Renaming by name counts as deleting, so
// the file is renamed through this handle.
int Hold(int descriptor, const std::string& name) {
  const std::wstring wide_name = WideFromUtf8(name);
  HANDLE hold = INVALID_HANDLE_VALUE;
  Patiently([&] {
    hold = CreateFileW(wide_name.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                       FILE_FLAG_WRITE_THROUGH, nullptr);
    return hold != INVALID_HANDLE_VALUE || IsGoing(HandleOf(descriptor));
  });
  if (hold == INVALID_HANDLE_VALUE && IsGoing(HandleOf(descriptor))) SetLastError(ERROR_FILE_EXISTS);
  return DescriptorOf(hold, _O_RDONLY);
}

int ChangeHeldName(int hold, const std::string& from, const std::string& to) {
  if (hold < 0) return ChangeName(from, to);
  std::error_code error;
  const std::wstring name = std::filesystem::absolute(WideFromUtf8(to), error).native();
  const size_t bytes = name.size() * sizeof(wchar_t);
  std::vector<FILE_RENAME_INFO> space(1 + bytes / sizeof(FILE_RENAME_INFO) + 1);
  FILE_RENAME_INFO& info = space.front();
  info.ReplaceIfExists = TRUE;
  info.RootDirectory = nullptr;
  info.FileNameLength = static_cast<DWORD>(bytes);
  std::memcpy(info.FileName, name.c_str(), bytes + sizeof(wchar_t));
  const auto size = static_cast<DWORD>(space.size() * sizeof(FILE_RENAME_INFO));
  return FailUnless(
      Patiently([&] { return SetFileInformationByHandle(HandleOf(hold), FileRenameInfo, &info, size) != 0; }));
}

int DeleteHeld(int hold, const std::string& name) {
  if (hold < 0) return DeleteName(name);
  FILE_DISPOSITION_INFO info{.DeleteFile = TRUE};
  return FailUnless(SetFileInformationByHandle(HandleOf(hold), FileDispositionInfo, &info, sizeof info) != 0);
}

void DeleteUnlessHeld(const std::string& name) {
  const std::wstring wide_name = WideFromUtf8(name);
  constexpr DWORD kOther = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE | FILE_ATTRIBUTE_REPARSE_POINT;
  const DWORD attributes = GetFileAttributesW(wide_name.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kOther) == 0) DeleteFileW(wide_name.c_str());
}

unsigned ProcessNumber() { return GetCurrentProcessId(); }

}  // namespace zevo
