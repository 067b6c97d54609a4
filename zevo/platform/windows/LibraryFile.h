// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_WINDOWS_LIBRARYFILE_H_
#define ZEVO_PLATFORM_WINDOWS_LIBRARYFILE_H_

#include <string>

namespace zevo {

/// Path of the file that this code was loaded from; empty when the system does not tell.
std::wstring LibraryFile();

}  // namespace zevo

#endif  // ZEVO_PLATFORM_WINDOWS_LIBRARYFILE_H_
