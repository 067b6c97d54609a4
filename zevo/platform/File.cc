#include <zevo/platform/File.h>

#include <zevo/Error.h>
#include <zevo/platform/SystemFile.h>

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
#ifdef EDQUOT
    case EDQUOT:
#endif
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

// The system's names are UTF-8, whatever the code page.
std::filesystem::path PathOf(const std::string& name) { return std::u8string(name.begin(), name.end()); }
std::string NameOf(const std::filesystem::path& path) {
  const std::u8string name = path.u8string();
  return std::string(name.begin(), name.end());
}

// The file that a name leads to, there or not, so that replacing it does not turn a link into a file.
std::string Resolved(const std::string& name) {
  std::filesystem::path path = PathOf(RequireName(name));
  std::error_code error;
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(path, error); ++i) {
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
    if (error) Fail(error.value(), name);
  }
  return NameOf(path);
}

// A file of another name beside the one named.
std::string Beside(const std::string& name, const std::string& other) {
  return NameOf(PathOf(name).parent_path() / PathOf(other));
}

std::string FolderOf(const std::string& name) {
  const std::string folder = NameOf(PathOf(name).parent_path());
  return folder.empty() ? "." : folder;
}

int Open(const std::string& name, OpenMode mode) { return OpenDescriptor(RequireName(name), mode); }

// Writes all the bytes; gives the reason when that fails, else 0.
int WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::ptrdiff_t written = WriteSome(descriptor, bytes.data(), bytes.size());
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return 0;
}

}  // namespace

bool FileExists(const std::string& name) { return IsName(name) && StatusOf(name).regular; }

bool IsStandardInput(const std::string& name) { return !name.empty() && name == StandardInputName(); }

void DeleteFile(const std::string& name) {
  if (DeleteName(RequireName(name)) != 0) Fail(errno, name);
}

void RenameFile(const std::string& from, const std::string& to) {
  if (ChangeName(RequireName(from), RequireName(to)) != 0) Fail(errno, from);
}

InputFile::InputFile(const std::string& name, Kind kind)
    : name_(name), descriptor_(Open(name, kind == Kind::kRegular ? OpenMode::kReadAtOnce : OpenMode::kRead)) {
  if (descriptor_ < 0) Fail(errno, name);
  if (kind == Kind::kRegular && !IsRegular(descriptor_)) {
    CloseDescriptor(descriptor_);
    throw MakeRunTimeError(RunTimeError::kPathFileAccess, "não é um ficheiro: " + name);
  }
}

InputFile::~InputFile() { CloseDescriptor(descriptor_); }

size_t InputFile::Read(char* bytes, size_t size) {
  size_t total = 0;
  while (total < size) {
    const std::ptrdiff_t got = ReadSome(descriptor_, bytes + total, size - total);
    if (got == 0) break;
    if (got < 0) Fail(errno, name_);
    total += static_cast<size_t>(got);
  }
  return total;
}

size_t InputBytes::Read(char* bytes, size_t size) {
  const size_t length = left_.copy(bytes, size);
  left_.remove_prefix(length);
  return length;
}

OutputFile::OutputFile(const std::string& name) : name_(name), descriptor_(Open(name, OpenMode::kReplace)) {
  if (descriptor_ < 0) FailToCreate(errno, name);
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) CloseDescriptor(descriptor_);
}

void OutputFile::Write(std::string_view bytes) {
  if (failure_ == 0) failure_ = WriteAll(descriptor_, bytes);
  RequireWhole();
}

void OutputFile::RaiseFailure() const { Fail(failure_, name_); }

void OutputFile::Close() {
  if (descriptor_ >= 0 && CloseDescriptor(std::exchange(descriptor_, -1)) != 0 && failure_ == 0) failure_ = errno;
  RequireWhole();
}

FileReplacement::FileReplacement(const std::string& name) : target_(Resolved(name)) {
  const FileStatus status = StatusOf(target_);
  if (status.exists && !status.regular) {
    descriptor_ = Open(target_, OpenMode::kWrite);
    if (descriptor_ < 0) Fail(errno, target_);
    return;
  }
  // Renaming would get around the protection of a file that may not be written.
  if (status.exists && CheckWritable(target_) != 0) Fail(errno, target_);
  CreateTemporary();
  if (status.exists && SetMode(descriptor_, status.mode) != 0) {
    const int reason = errno;
    CloseDescriptor(descriptor_);
    DeleteName(temporary_);
    Fail(reason, target_);
  }
}

void FileReplacement::CreateTemporary() {
  for (int attempt = 0;; ++attempt) {
    // Not made from the target's name, which may be as long as a name can be.
    temporary_ = Beside(target_, "zevo-" + std::to_string(ProcessNumber()) + "-" + std::to_string(attempt) + ".tmp");
    descriptor_ = Open(temporary_, OpenMode::kCreate);
    if (descriptor_ >= 0) return;
    if (errno != EEXIST) {
      const int reason = errno;
      temporary_.clear();
      FailToCreate(reason, target_);
    }
  }
}

FileReplacement::~FileReplacement() {
  if (descriptor_ >= 0) CloseDescriptor(descriptor_);
  if (!temporary_.empty()) DeleteName(temporary_);
}

void FileReplacement::Write(std::string_view bytes) {
  if (const int failure = WriteAll(descriptor_, bytes)) Fail(failure, target_);
}

void FileReplacement::Commit() {
  if (!temporary_.empty() && FlushToDisk(descriptor_) != 0) Fail(errno, target_);
  if (CloseDescriptor(std::exchange(descriptor_, -1)) != 0) Fail(errno, target_);
  if (temporary_.empty()) return;
  const std::string folder = FolderOf(target_);
  if (ChangeName(temporary_, target_) != 0) Fail(errno, target_);
  temporary_.clear();
  // The content is safe by now: a folder that cannot be flushed only delays when the new name is seen after a crash.
  FlushFolder(folder);
}

}  // namespace zevo
