// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/FileState.h"

#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/words/FileWords.h"

namespace zevo::saft {

std::optional<FileState> StateOf(const std::filesystem::path& path) {
  std::error_code none;
  const FileState state{std::filesystem::file_size(path, none), std::filesystem::last_write_time(path, none)};
  return none ? std::nullopt : std::optional(state);
}

void RequireUnchanged(const std::string& file, const std::optional<FileState>& before) {
  const std::optional<FileState> state = StateOf(file);
  if (state != before) throw Failure(file, Say(state ? words::kChanged : words::kRemoved));
}

}  // namespace zevo::saft
