// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SystemFile.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

namespace zevo {
namespace {

template <class Call>
auto Uninterrupted(Call&& call) {
  for (;;) {
    const auto result = call();
    if (result >= 0 || errno != EINTR) return result;
  }
}

int FlagsOf(OpenMode mode) {
  switch (mode) {
    case OpenMode::kRead:
      return O_RDONLY;
    case OpenMode::kReadAtOnce:
      return O_RDONLY | O_NONBLOCK | O_NOCTTY;
    case OpenMode::kWrite:
      return O_WRONLY;
    case OpenMode::kReplace:
      return O_WRONLY | O_CREAT | O_TRUNC;
    case OpenMode::kCreate:
    case OpenMode::kCreatePrivate:
      return O_WRONLY | O_CREAT | O_EXCL;
  }
  return O_RDONLY;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// Whether a name is that of the file, and the only one.
bool IsOnlyNameOf(const std::string& name, const struct stat& file) {
  struct stat named {};
  return lstat(name.c_str(), &named) == 0 && named.st_dev == file.st_dev && named.st_ino == file.st_ino &&
         named.st_nlink == 1;
}

}  // namespace

FileStatus StatusOf(const std::string& name) {
  struct stat status {};
  if (stat(name.c_str(), &status) != 0) return {.denied = errno == EACCES};
  return {.exists = true,
          .regular = S_ISREG(status.st_mode),
          .mode = status.st_mode & 0777U,
          .owner = status.st_uid,
          .group = status.st_gid};
}

int CheckWritable(const std::string& name) { return faccessat(AT_FDCWD, name.c_str(), W_OK, AT_EACCESS); }

int OpenDescriptor(const std::string& name, OpenMode mode) {
  // Opened by its name, the file behind it would be read from its beginning, and only by users who may open it.
  if (mode == OpenMode::kRead && name == StandardInputName()) return fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
  const mode_t permissions = mode == OpenMode::kCreatePrivate ? 0600 : 0666;
  return Uninterrupted([&] { return open(name.c_str(), FlagsOf(mode) | O_CLOEXEC, permissions); });
}

bool IsRegular(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

int64_t PositionOf(int descriptor) { return IsRegular(descriptor) ? lseek(descriptor, 0, SEEK_CUR) : -1; }

int SeekTo(int descriptor, int64_t position) { return lseek(descriptor, position, SEEK_SET) == position ? 0 : -1; }

FileStamp StampOf(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return {};
  constexpr int64_t kNanoseconds = 1'000'000'000;
  return {.size = status.st_size, .written = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

int OpenNameless() {
  const char* const named = std::getenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe): nobody here sets it
  const std::string folder = named == nullptr || *named == '\0' ? "/tmp" : named;
#ifdef O_TMPFILE
  const int nameless = Uninterrupted([&] { return open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600); });
  if (nameless >= 0) return nameless;
#endif
  // Not every file system has files without a name.
  std::string name = folder + "/zevo-XXXXXX";
  const int descriptor = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor >= 0) unlink(name.c_str());
  return descriptor;
}

std::ptrdiff_t ReadSome(int descriptor, char* bytes, size_t size) {
  return Uninterrupted([&] { return read(descriptor, bytes, size); });
}

std::ptrdiff_t WriteSome(int descriptor, const char* bytes, size_t size) {
  return Uninterrupted([&] { return write(descriptor, bytes, size); });
}

int SetPermissions(int descriptor, const FileStatus& like) {
  constexpr auto kSame = static_cast<uid_t>(-1);
  struct stat own {};
  if (fstat(descriptor, &own) != 0) return -1;
  // The permissions come last: until then only the owner may open the file, be it the old or the new one.
  const bool same_group = own.st_gid == like.group || fchown(descriptor, kSame, like.group) == 0;
  if (own.st_uid != like.owner && fchown(descriptor, like.owner, kSame) != 0) {
    // Not allowed: the file then belongs to the user who saves it.
  }
  unsigned mode = like.mode;
  if (!same_group) {
    // Members of the old group count as others for the new file, and those of its group counted as others for the old
    // file: both get what group and others had in common.
    const unsigned others = mode & (mode >> 3) & 07;
    mode = (mode & 0700) | others << 3 | others;
  }
  return fchmod(descriptor, mode);
}

int FlushToDisk(int descriptor) {
  return Uninterrupted([&] { return fsync(descriptor); });
}

// EINTR counts as success: the descriptor is closed then too.
int CloseDescriptor(int descriptor) { return close(descriptor) == 0 || errno == EINTR ? 0 : -1; }

int DeleteName(const std::string& name) { return unlink(name.c_str()); }

int ChangeName(const std::string& from, const std::string& to) { return rename(from.c_str(), to.c_str()); }

void FlushFolder(const std::string& name) {
  const int folder = open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);
  close(folder);
}

std::string_view StandardInputName() { return "/dev/stdin"; }

std::vector<std::string> NamesIn(const std::string& folder, bool (*wanted)(std::string_view name), size_t most) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, CloseFolder> entries(opendir(folder.c_str()));
  if (!entries) return names;
  while (names.size() < most) {
    // readdir is safe with threads here: each call has its own DIR.
    const dirent* entry = readdir(entries.get());  // NOLINT(concurrency-mt-unsafe)
    if (entry == nullptr) break;
    if (wanted(entry->d_name)) names.emplace_back(entry->d_name);
  }
  return names;
}

// The lock lasts until the last descriptor of the open file is closed, so a second one keeps it.
int Hold(int descriptor, const std::string& name) {
  const int hold = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (hold < 0) return -1;
  struct stat named {};
  int reason = 0;
  if (flock(hold, LOCK_EX | LOCK_NB) != 0) {
    reason = errno == EWOULDBLOCK ? EEXIST : errno;
  } else if (lstat(name.c_str(), &named) != 0 && errno == ENOENT) {
    reason = EEXIST;
  }
  if (reason == 0) return hold;
  close(hold);
  errno = reason;
  return -1;
}

int ChangeHeldName(int, const std::string& from, const std::string& to) { return ChangeName(from, to); }

int DeleteHeld(int, const std::string& name) { return DeleteName(name); }

void DeleteUnlessHeld(const std::string& name) {
  const int descriptor = open(name.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return;
  struct stat file {};
  const bool ours = fstat(descriptor, &file) == 0 && S_ISREG(file.st_mode) && file.st_uid == geteuid();
  // The name is checked under the lock, so that it cannot become that of another file in between.
  if (ours && flock(descriptor, LOCK_EX | LOCK_NB) == 0 && IsOnlyNameOf(name, file)) unlink(name.c_str());
  close(descriptor);
}

unsigned ProcessNumber() { return static_cast<unsigned>(getpid()); }

}  // namespace zevo
