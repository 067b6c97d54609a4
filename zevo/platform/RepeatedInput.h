// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_REPEATEDINPUT_H_
#define ZEVO_PLATFORM_REPEATEDINPUT_H_

#include <zevo/platform/File.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zevo {

/// A file that is read more than once, the standard input included: a file behind that is read again from where it
/// stood, of a pipe what was read is kept in a nameless temporary file. A pass may end anywhere; the next one takes
/// what was kept and then goes on with the pipe. Several passes over one input may go on at a time, an object each.
class RepeatedInput final : public ByteSource {
 public:
  /// Gets how many bytes of the file the pass has read, every 256 KiB and at its end. Returns whether to go on.
  using Watch = std::function<bool(int64_t bytesRead)>;

  /// Opens nothing before the first byte is read.
  explicit RepeatedInput(std::string name, Watch watch = {});
  /// Another pass, from the beginning, over the input of `other`, which need not outlive it.
  RepeatedInput(const RepeatedInput& other, Watch watch);
  RepeatedInput(const RepeatedInput&) = delete;
  RepeatedInput& operator=(const RepeatedInput&) = delete;
  ~RepeatedInput() override;

  /// Raises message 501, without a source, where the watch ends it, and error 57 where another pass has taken what
  /// there is no room to keep.
  size_t Read(char* bytes, size_t size) override;

  /// Where a file is behind it. Progress goes on from where it was told last.
  bool CanRestart() override;
  void Restart() override;

  /// Whether all that was read can be read again. Not of a pipe where the system has no room for a temporary file: such
  /// an input has one pass only.
  bool CanRewind() const;
  /// Raises error 57 where it cannot.
  void RequireRewind() const;
  /// Begins another pass, where that can be.
  void Rewind() { read_ = told_ = furthest_ = 0; }

 private:
  class Store;

  void Tell(bool atEnd);

  std::shared_ptr<Store> store_;  // of all passes
  Watch watch_;
  int64_t read_ = 0;  // in this pass
  int64_t told_ = 0;
  int64_t furthest_ = 0;  // of what was read before a restart
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_REPEATEDINPUT_H_
