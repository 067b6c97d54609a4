// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TERMINAL_PROGRESSBAR_H_
#define ZEVO_TOOLS_SAFT_TERMINAL_PROGRESSBAR_H_

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

namespace zevo::saft {

/// A line on a terminal that tells how far the work on a file has come: how much of it is done, how fast it goes and
/// how long it will take. What a narrow terminal has no room for is left out, from the end; the line is never longer
/// than one of the terminal's. It goes away with the object.
class ProgressBar {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Clock = std::function<Time()>;
  /// Gives how many characters a line of the terminal has.
  using Width = std::function<size_t()>;

  /// `size` is that of the file in bytes.
  ProgressBar(std::ostream& terminal, uint64_t size, Clock clock = std::chrono::steady_clock::now,
              Width width = WidthOfTerminal);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  /// Tells that so many bytes are done. Draws ten times a second at most; nothing for work of less than half a second.
  void Show(uint64_t done);

  /// The width of the terminal on standard error; 80 where it is not known.
  static size_t WidthOfTerminal();

 private:
  size_t Room() const;
  std::string Line(uint64_t done, double seconds, size_t room) const;

  std::ostream& terminal_;
  uint64_t size_;
  Clock clock_;
  Width terminal_width_;
  Time began_;
  Time next_;
  size_t width_ = 0;  // of the line on the terminal
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TERMINAL_PROGRESSBAR_H_
