// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/ReadingProgress.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <system_error>

namespace zevo::saft {
namespace {

// No progress bar where the output is a pipe: the program at its other end may be writing to the same terminal.
bool IsProgressWelcome(OutputWhile output) {
  struct stat standardOutput {};
  const bool piped = fstat(STDOUT_FILENO, &standardOutput) == 0 && S_ISFIFO(standardOutput.st_mode);
  if (output == OutputWhile::kIntoFiles) return isatty(STDERR_FILENO) == 1;
  const bool inTheWay = output == OutputWhile::kReading && isatty(STDOUT_FILENO) == 1;
  return isatty(STDERR_FILENO) == 1 && !piped && !inTheWay;
}

}  // namespace

std::optional<uint64_t> SizeToRead(const std::string& file) {
  std::error_code unknown;
  const auto size = std::filesystem::file_size(file, unknown);
  if (unknown) return std::nullopt;
  return size;
}

ReadingProgress::ReadingProgress(std::optional<uint64_t> size, OutputWhile output) {
  if (!size) return;
  if (IsProgressWelcome(output)) bar_.emplace(std::cerr, *size);
  if (output != OutputWhile::kIntoFiles) reading_.emplace(Interruption::During::kReading);
}

}  // namespace zevo::saft
