// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FOLDERS_H_
#define ZEVO_PLATFORM_FOLDERS_H_

#include <string>
#include <string_view>

namespace zevo {

/// The folder for files shared between programs (CSIDL_PROGRAM_FILES_COMMON); empty where the system has none.
std::string CommonFilesFolder();

/// The folder that the library was loaded from, as an absolute path, whatever the path that led to it; empty when the
/// system does not tell one. Code that is part of a program lies where the program does, however that was called.
std::string LibraryFolder();

/// `folder` and `name` with a separator between them.
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FOLDERS_H_
