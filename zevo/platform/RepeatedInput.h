// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_REPEATEDINPUT_H_
#define ZEVO_PLATFORM_REPEATEDINPUT_H_

#include <zevo/platform/File.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace zevo {

/// A file that is read more than once, the standard input included: a file behind that is read again from where it
/// stood, of a pipe what was read is kept in a nameless temporary file. A pass may end anywhere; the next one takes
/// what was kept and then goes on with the pipe.
class RepeatedInput final : public ByteSource {
 public:
  /// Gets how many bytes of the file the pass has read, every 256 KiB and at its end. Returns whether to go on.
  using Watch = std::function<bool(int64_t bytesRead)>;

  /// Opens nothing before the first byte is read.
  explicit RepeatedInput(std::string name, Watch watch = {});
  RepeatedInput(const RepeatedInput&) = delete;
  RepeatedInput& operator=(const RepeatedInput&) = delete;
  ~RepeatedInput() override;

  /// Raises message 501, without a source, where the watch ends it.
  size_t Read(char* bytes, size_t size) override;

  /// Whether all that was read can be read again. Not of a pipe where the system has no room for a temporary file.
  bool CanRewind() const { return !lost_; }
  /// Begins another pass, where that can be.
  void Rewind();

 private:
  void Open();
  size_t ReadKept(char* bytes, size_t size);
  void Keep(const char* bytes, size_t size);
  void Tell(bool atEnd);

  std::string name_;
  Watch watch_;
  std::optional<InputFile> file_;
  int64_t start_ = 0;              // in the file; -1 for a pipe
  std::optional<InputFile> copy_;  // of a pipe
  int64_t kept_ = 0;               // in the copy
  bool lost_ = false;              // what was read
  int64_t read_ = 0;               // in this pass
  int64_t told_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_REPEATEDINPUT_H_
