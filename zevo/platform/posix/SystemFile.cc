#include <zevo/platform/SystemFile.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

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
      return O_WRONLY | O_CREAT | O_EXCL;
  }
  return O_RDONLY;
}

}  // namespace

FileStatus StatusOf(const std::string& name) {
  struct stat status {};
  if (stat(name.c_str(), &status) != 0) return {};
  return {.exists = true, .regular = S_ISREG(status.st_mode), .mode = status.st_mode & 07777U};
}

int CheckWritable(const std::string& name) { return faccessat(AT_FDCWD, name.c_str(), W_OK, AT_EACCESS); }

int OpenDescriptor(const std::string& name, OpenMode mode) {
  return Uninterrupted([&] { return open(name.c_str(), FlagsOf(mode) | O_CLOEXEC, 0666); });
}

bool IsRegular(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

std::ptrdiff_t ReadSome(int descriptor, char* bytes, size_t size) {
  return Uninterrupted([&] { return read(descriptor, bytes, size); });
}

std::ptrdiff_t WriteSome(int descriptor, const char* bytes, size_t size) {
  return Uninterrupted([&] { return write(descriptor, bytes, size); });
}

int SetMode(int descriptor, unsigned mode) { return fchmod(descriptor, mode); }

int FlushToDisk(int descriptor) {
  return Uninterrupted([&] { return fsync(descriptor); });
}

// The descriptor is gone also when a signal interrupts its closing.
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

unsigned ProcessNumber() { return static_cast<unsigned>(getpid()); }

}  // namespace zevo
