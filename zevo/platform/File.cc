// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/File.h>

#include <zevo/Error.h>
#include <zevo/platform/SystemFile.h>

#include <atomic>
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

// Where a file to be created is "not found", it is its folder that is missing.
[[noreturn]] void FailToCreate(int systemError, const std::string& name) {
  if (systemError == ENOENT) throw MakeRunTimeError(RunTimeError::kPathNotFound, Reason(systemError, name));
  Fail(systemError, name);
}

// The system would end the name at a NUL.
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

// The file that a name leads to through links, whether or not it exists: a replacement goes there and leaves the links.
// Follows as many links as Linux does.
std::string Resolved(const std::string& name) {
  std::filesystem::path path = PathOf(RequireName(name));
  std::error_code error;
  constexpr int kMostLinks = 40;
  for (int links = 0; std::filesystem::is_symlink(path, error); ++links) {
    if (links == kMostLinks) Fail(ELOOP, name);
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

// Names of temporary files, such as zevo-4711-0.tmp: the number of the process, then that of the replacement within it.
constexpr std::string_view kTemporaryStart = "zevo-";
constexpr std::string_view kTemporaryEnd = ".tmp";

std::string NewTemporaryName() {
  static std::atomic<unsigned> count = 0;
  return std::string(kTemporaryStart)
      .append(std::to_string(ProcessNumber()))
      .append("-")
      .append(std::to_string(count++))
      .append(kTemporaryEnd);
}

bool IsTemporaryName(std::string_view name) {
  if (!name.starts_with(kTemporaryStart) || !name.ends_with(kTemporaryEnd)) return false;
  name.remove_prefix(kTemporaryStart.size());
  name.remove_suffix(kTemporaryEnd.size());
  const auto is_number = [](std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  const size_t dash = name.find('-');
  return dash != std::string_view::npos && is_number(name.substr(0, dash)) && is_number(name.substr(dash + 1));
}

// Deletes what processes that died in the middle of a save left beside a target. Failures are ignored: such files do no
// harm.
void DeleteAbandoned(const std::string& target) {
  constexpr size_t kMost = 1000;
  for (const std::string& name : NamesIn(FolderOf(target), IsTemporaryName, kMost)) {
    DeleteUnlessHeld(Beside(target, name));
  }
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

bool IsOutOfReach(const std::string& name) { return IsName(name) && StatusOf(name).denied; }

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

bool InputFile::CanRestart() {
  beginning_ = PositionOf(descriptor_);
  stamp_ = StampOf(descriptor_);
  return beginning_ >= 0;
}

void InputFile::Restart() {
  if (StampOf(descriptor_) != stamp_) {
    throw MakeRunTimeError(RunTimeError::kDeviceIO, "o ficheiro mudou enquanto era lido: " + name_);
  }
  if (SeekTo(descriptor_, beginning_) != 0) Fail(errno, name_);
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

// Braces fix the order: the name is copied before anything is opened, so no descriptor is lost when memory runs out.
FileReplacement::FileReplacement(const std::string& name)
    : target_(Resolved(name)), output_{std::string(target_), OpenOutput()} {}

int FileReplacement::OpenOutput() {
  old_ = StatusOf(target_);
  if (old_.exists && !old_.regular) {
    const int descriptor = Open(target_, OpenMode::kWrite);
    if (descriptor < 0) Fail(errno, target_);
    return descriptor;
  }
  // Renaming needs no right to write the old file, so that is checked here.
  if (old_.exists && CheckWritable(target_) != 0) Fail(errno, target_);
  DeleteAbandoned(target_);
  return CreateTemporary();
}

int FileReplacement::CreateTemporary() {
  for (;;) {
    // Not the target's name with something added: that may be as long as a name can be already.
    temporary_ = Beside(target_, NewTemporaryName());
    const int descriptor = Open(temporary_, old_.exists ? OpenMode::kCreatePrivate : OpenMode::kCreate);
    if (descriptor >= 0) {
      hold_ = Hold(descriptor, temporary_);
      if (hold_ >= 0 || errno != EEXIST) return descriptor;
      CloseDescriptor(descriptor);
    } else if (errno != EEXIST) {
      FailToCreate(errno, target_);
    }
  }
}

FileReplacement::~FileReplacement() {
  if (!temporary_.empty()) DeleteHeld(hold_, temporary_);
  if (hold_ >= 0) CloseDescriptor(hold_);
}

void FileReplacement::Commit() {
  output_.RequireWhole();
  if (temporary_.empty()) return output_.Close();
  if (old_.exists && SetPermissions(output_.Descriptor(), old_) != 0) Fail(errno, target_);
  if (FlushToDisk(output_.Descriptor()) != 0) Fail(errno, target_);
  output_.Close();
  const std::string folder = FolderOf(target_);
  if (ChangeHeldName(hold_, temporary_, target_) != 0) Fail(errno, target_);
  temporary_.clear();
  if (hold_ >= 0) CloseDescriptor(std::exchange(hold_, -1));
  // The content is on the disk by now. Where a folder cannot be flushed, a crash may only bring back the old file.
  FlushFolder(folder);
}

}  // namespace zevo
