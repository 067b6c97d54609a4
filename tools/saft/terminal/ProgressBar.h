// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TERMINAL_PROGRESSBAR_H_
#define ZEVO_TOOLS_SAFT_TERMINAL_PROGRESSBAR_H_

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

namespace zevo::saft {

/// A line on a terminal that tells how far the work on a file has come: how much of it is done, how fast it goes and
/// how long it will take. The line goes away with the object.
class ProgressBar {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Clock = std::function<Time()>;

  /// `size` is that of the file in bytes.
  ProgressBar(std::ostream& terminal, uint64_t size, Clock clock = std::chrono::steady_clock::now);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  /// Tells that so many bytes are done. Draws ten times a second at most; nothing for work of less than half a second.
  void Show(uint64_t done);

 private:
  std::string Line(uint64_t done, double seconds) const;

  std::ostream& terminal_;
  uint64_t size_;
  Clock clock_;
  Time began_;
  Time next_;
  size_t width_ = 0;  // of the line on the terminal
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TERMINAL_PROGRESSBAR_H_
