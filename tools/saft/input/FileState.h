// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_FILESTATE_H_
#define ZEVO_TOOLS_SAFT_INPUT_FILESTATE_H_

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace zevo::saft {

/// Of a file, what changes with it.
struct FileState {
  uintmax_t size;
  std::filesystem::file_time_type written;

  friend bool operator==(const FileState&, const FileState&) = default;
};

/// Nothing where there is no such file.
std::optional<FileState> StateOf(const std::filesystem::path& path);

/// Fails where a file is not in the state in which it was before.
void RequireUnchanged(const std::string& file, const std::optional<FileState>& before);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_FILESTATE_H_
