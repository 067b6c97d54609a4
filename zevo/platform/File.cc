#include <zevo/platform/File.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zevo/Error.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace zevo {
namespace {

RunTimeError NumberFor(int systemError) {
  switch (systemError) {
    case ENOENT:
      return RunTimeError::kFileNotFound;
    case ENOTDIR:
      return RunTimeError::kPathNotFound;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return RunTimeError::kDiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
      return RunTimeError::kPermissionDenied;
    case EIO:
      return RunTimeError::kDeviceIO;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
    case EBADF:
      return RunTimeError::kBadFileName;
    case ENOMEM:
      return RunTimeError::kOutOfMemory;
    default:
      return RunTimeError::kPathFileAccess;
  }
}

std::string Reason(int systemError, const std::string& name) {
  return std::generic_category().message(systemError) + ": " + name;
}

[[noreturn]] void Fail(int systemError, const std::string& name) {
  throw MakeRunTimeError(NumberFor(systemError), Reason(systemError, name));
}

// A new file that is not found lacks its folder.
[[noreturn]] void FailToCreate(int systemError, const std::string& name) {
  if (systemError == ENOENT) throw MakeRunTimeError(RunTimeError::kPathNotFound, Reason(systemError, name));
  Fail(systemError, name);
}

// The system would take what stands before a NUL for the whole name.
bool IsName(const std::string& name) { return name.find('\0') == std::string::npos; }

const std::string& RequireName(const std::string& name) {
  if (!IsName(name)) throw MakeRunTimeError(RunTimeError::kBadFileName, name.c_str());
  return name;
}

// The file that a name leads to, there or not, so that replacing it does not turn a link into a file.
std::string Resolved(const std::string& name) {
  std::filesystem::path path = RequireName(name);
  std::error_code error;
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(path, error); ++i) {
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
    if (error) Fail(error.value(), name);
  }
  return path.string();
}

std::string FolderOf(const std::string& path) {
  const size_t separator = path.rfind('/');
  if (separator == std::string::npos) return ".";
  return separator == 0 ? "/" : path.substr(0, separator);
}

int Open(const std::string& name, int flags, unsigned mode = 0) {
  int descriptor;
  do {
    descriptor = open(RequireName(name).c_str(), flags | O_CLOEXEC, mode);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

// Writes all the bytes; gives the reason when that fails, else 0.
int WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<size_t>(written));
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

}  // namespace

bool FileExists(const std::string& name) {
  struct stat status {};
  return IsName(name) && stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

void DeleteFile(const std::string& name) {
  if (unlink(RequireName(name).c_str()) != 0) Fail(errno, name);
}

void RenameFile(const std::string& from, const std::string& to) {
  if (rename(RequireName(from).c_str(), RequireName(to).c_str()) != 0) Fail(errno, from);
}

InputFile::InputFile(const std::string& name) : name_(name), descriptor_(Open(name, O_RDONLY)) {
  if (descriptor_ < 0) Fail(errno, name);
}

InputFile::~InputFile() { close(descriptor_); }

size_t InputFile::Read(char* bytes, size_t size) {
  size_t total = 0;
  while (total < size) {
    const ssize_t got = read(descriptor_, bytes + total, size - total);
    if (got == 0) break;
    if (got > 0) {
      total += static_cast<size_t>(got);
    } else if (errno != EINTR) {
      Fail(errno, name_);
    }
  }
  position_ += total;
  return total;
}

OutputFile::OutputFile(const std::string& name)
    : name_(name), descriptor_(Open(name, O_WRONLY | O_CREAT | O_TRUNC, 0666)) {
  if (descriptor_ < 0) FailToCreate(errno, name);
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

void OutputFile::Write(std::string_view bytes) {
  if (failure_ == 0) failure_ = WriteAll(descriptor_, bytes);
  if (failure_ != 0) Fail(failure_, name_);
}

void OutputFile::Close() {
  if (descriptor_ >= 0 && close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR && failure_ == 0)
    failure_ = errno;
  if (failure_ != 0) Fail(failure_, name_);
}

FileReplacement::FileReplacement(const std::string& name) : target_(Resolved(name)) {
  struct stat status {};
  const bool exists = stat(target_.c_str(), &status) == 0;
  if (exists && !S_ISREG(status.st_mode)) {
    descriptor_ = Open(target_, O_WRONLY);
    if (descriptor_ < 0) Fail(errno, target_);
    return;
  }
  // Renaming would get around the protection of a file that may not be written.
  if (exists && faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) Fail(errno, target_);
  CreateTemporary(0666);
  if (exists && fchmod(descriptor_, status.st_mode & 07777U) != 0) {
    const int reason = errno;
    close(descriptor_);
    unlink(temporary_.c_str());
    Fail(reason, target_);
  }
}

void FileReplacement::CreateTemporary(unsigned mode) {
  for (int attempt = 0;; ++attempt) {
    // Not made from the target's name, which may be as long as a name can be.
    temporary_ = FolderOf(target_) + "/zevo-" + std::to_string(getpid()) + "-" + std::to_string(attempt) + ".tmp";
    descriptor_ = Open(temporary_, O_WRONLY | O_CREAT | O_EXCL, mode);
    if (descriptor_ >= 0) return;
    if (errno != EEXIST) {
      const int reason = errno;
      temporary_.clear();
      FailToCreate(reason, target_);
    }
  }
}

FileReplacement::~FileReplacement() {
  if (descriptor_ >= 0) close(descriptor_);
  if (!temporary_.empty()) unlink(temporary_.c_str());
}

void FileReplacement::Write(std::string_view bytes) {
  if (const int failure = WriteAll(descriptor_, bytes)) Fail(failure, target_);
}

void FileReplacement::Commit() {
  while (!temporary_.empty() && fsync(descriptor_) != 0) {
    if (errno != EINTR) Fail(errno, target_);
  }
  const int closed = close(descriptor_);
  descriptor_ = -1;
  if (closed != 0 && errno != EINTR) Fail(errno, target_);
  if (temporary_.empty()) return;
  const std::string folderName = FolderOf(target_);
  if (rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno, target_);
  temporary_.clear();
  // The content is safe by now: a folder that cannot be flushed only delays when the new name is seen after a crash.
  const int folder = Open(folderName, O_RDONLY | O_DIRECTORY);
  if (folder >= 0) {
    fsync(folder);
    close(folder);
  }
}

}  // namespace zevo
