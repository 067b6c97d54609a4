// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_READINGPROGRESS_H_
#define ZEVO_TOOLS_SAFT_INPUT_READINGPROGRESS_H_

#include <cstdint>
#include <optional>
#include <string>

#include "tools/saft/errors/Interruption.h"
#include "tools/saft/terminal/ProgressBar.h"

namespace zevo::saft {

/// Where a command puts what it finds: it decides whether a progress bar would be in the way.
enum class OutputWhile {
  kReading,       ///< on standard output
  kAfterReading,  ///< on standard output
  kIntoFiles,     ///< into files that must not stay when a signal ends the program
};

/// The size in bytes of what the library calls the file, where it is known: not of a pipe.
std::optional<uint64_t> SizeToRead(const std::string& file);

/// What people see and may do while a file is read: on a terminal there is a progress bar, and Ctrl-C is noted, for
/// `Interruption` to tell. Neither where the size is not known: reading a pipe may wait, and a signal would be seen
/// only after that. Where files are written, signals are left to the writer.
class ReadingProgress {
 public:
  ReadingProgress(std::optional<uint64_t> size, OutputWhile output);

  /// Tells that so many bytes are read.
  void Show(uint64_t read) {
    if (bar_) bar_->Show(read);
  }
  /// Takes the bar away for good, before something else is told on the terminal.
  void Clear() { bar_.reset(); }

 private:
  std::optional<ProgressBar> bar_;
  std::optional<Interruption> reading_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_READINGPROGRESS_H_
