// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_WINDOWS_UNLOADING_H_
#define ZEVO_PLATFORM_WINDOWS_UNLOADING_H_

namespace zevo {

// What the entry point of a library that is loaded and unloaded tells the platform. `library` is the handle that the
// system gives.

/// Frees what libxml2 keeps for the calling thread, which ends.
void EndThread(void* library);

/// Frees what is kept for every thread and for the process, as the library is unloaded.
void EndLibrary(void* library);

/// The part of this that runs what was given to `AtThreadExit`.
void RunThreadExits();

}  // namespace zevo

#endif  // ZEVO_PLATFORM_WINDOWS_UNLOADING_H_
