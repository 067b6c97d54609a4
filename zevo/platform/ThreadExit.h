// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_THREADEXIT_H_
#define ZEVO_PLATFORM_THREADEXIT_H_

namespace zevo {

/// Has `function` called with `argument` when the calling thread ends, or as the library is unloaded before that: then
/// by the thread that unloads it. Throws std::bad_alloc.
void AtThreadExit(void (*function)(void*), void* argument);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_THREADEXIT_H_
