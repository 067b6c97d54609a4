// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_FILESTATE_H_
#define ZEVO_TOOLS_SAFT_INPUT_FILESTATE_H_

#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

namespace zevo::saft {

/// Of a file, what changes with it.
struct FileState {
  uintmax_t size;
  std::filesystem::file_time_type written;

  friend bool operator==(const FileState&, const FileState&) = default;
};

/// Nothing where there is no such file.
inline std::optional<FileState> StateOf(const std::filesystem::path& path) {
  std::error_code none;
  const FileState state{std::filesystem::file_size(path, none), std::filesystem::last_write_time(path, none)};
  return none ? std::nullopt : std::optional(state);
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_FILESTATE_H_
