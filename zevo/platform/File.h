// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FILE_H_
#define ZEVO_PLATFORM_FILE_H_

#include <zevo/platform/SystemFile.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {

// Names of files are UTF-8. Failures raise run-time errors that carry the system's reason and the name.

/// Whether there is a regular file of that very name.
bool FileExists(const std::string& name);

/// Whether a folder on the way to a file may not be searched.
bool IsOutOfReach(const std::string& name);

/// Whether the name is the one under which the system has a process's standard input, "/dev/stdin" where there is one.
bool IsStandardInput(const std::string& name);

void DeleteFile(const std::string& name);

void RenameFile(const std::string& from, const std::string& to);

/// Where bytes go. One that has failed fails again, whatever it is given.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  virtual void Write(std::string_view bytes) = 0;
};

/// Where bytes come from, front to back.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  /// Reads up to `size` bytes; fewer only at the end.
  virtual size_t Read(char* bytes, size_t size) = 0;
  /// Whether Restart can be called later. To be asked before the first byte is read.
  virtual bool CanRestart() { return false; }
  /// Has it read from its beginning again. Raises error 57 where the bytes may be others than before.
  virtual void Restart() {}
};

/// A file read from front to back.
class InputFile : public ByteSource {
 public:
  enum class Kind {
    kAny,
    kRegular,  ///< Raises error 75 for what is neither a file nor missing, and waits for nobody to open it.
  };

  explicit InputFile(const std::string& name, Kind kind = Kind::kAny);
  /// Takes over a descriptor that is open for reading.
  InputFile(std::string&& name, int descriptor) noexcept : name_(std::move(name)), descriptor_(descriptor) {}
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() override;

  size_t Read(char* bytes, size_t size) override;
  /// A regular file can.
  bool CanRestart() override;
  void Restart() override;
  int Descriptor() const { return descriptor_; }

 private:
  std::string name_;
  int descriptor_;
  // When it was asked whether it can be read again.
  int64_t beginning_ = -1;
  FileStamp stamp_;
};

/// Bytes in memory, which must outlive this.
class InputBytes : public ByteSource {
 public:
  explicit InputBytes(std::string_view bytes) : bytes_(bytes), left_(bytes) {}

  size_t Read(char* bytes, size_t size) override;
  bool CanRestart() override { return true; }
  void Restart() override { left_ = bytes_; }

 private:
  std::string_view bytes_;
  std::string_view left_;
};

/// A file written from front to back, created or emptied first.
class OutputFile : public ByteSink {
 public:
  explicit OutputFile(const std::string& name);
  /// Takes over a descriptor that is open for writing.
  OutputFile(std::string&& name, int descriptor) noexcept : name_(std::move(name)), descriptor_(descriptor) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() override;

  /// After a failure the file is not whole: every later call raises the same again.
  void Write(std::string_view bytes) override;
  /// Raises the failure of an earlier call, if there was one.
  void RequireWhole() const {
    if (failure_ != 0) RaiseFailure();
  }
  /// Raises what closing shows of earlier writes.
  void Close();
  int Descriptor() const { return descriptor_; }

 private:
  [[noreturn]] void RaiseFailure() const;

  std::string name_;
  int descriptor_;
  int failure_ = 0;
};

/// The new content of a file, which takes the file's place as a whole or not at all. It is written to a temporary file
/// beside the target, which nobody else may open until it takes the place of a file; without Commit, the target stays
/// as it was. A target that is no regular file, such as a device, is written to directly.
///
/// The new file has the permissions of the old one, and its owner and group where the process may give them. Other
/// names of the old file, hard links, keep the old content. Access control lists and extended attributes are not
/// carried over. A temporary file that a process left behind when it died is deleted by the next replacement in that
/// folder.
class FileReplacement : public ByteSink {
 public:
  explicit FileReplacement(const std::string& name);
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  ~FileReplacement() override;

  void Write(std::string_view bytes) override { output_.Write(bytes); }

  /// Flushes everything to disk and puts the new content in the target's place.
  void Commit();

 private:
  int OpenOutput();
  int CreateTemporary();

  std::string target_;
  FileStatus old_;
  std::string temporary_;  // empty when the target is written to directly
  int hold_ = -1;          // see Hold; -1 where the system cannot hold files
  OutputFile output_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FILE_H_
