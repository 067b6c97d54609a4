#ifndef ZEVO_TOOLS_SAFT_FILEKIND_H_
#define ZEVO_TOOLS_SAFT_FILEKIND_H_

#include <string>

namespace zevo::saft {

/// Fails with what a name leads to when that is there and no regular file: a folder, a pipe, a device. It is not
/// opened: opening a pipe may wait for ever.
void RequireRegularFile(const std::string& path);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_FILEKIND_H_
