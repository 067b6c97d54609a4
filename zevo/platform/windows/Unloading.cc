// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/windows/Unloading.h>

#include <windows.h>
// After windows.h.
#include <libxml/parser.h>

// Its header has it only for its own build.
extern "C" int XMLCALL xmlDllMain(void* library, DWORD reason, void* reserved);

namespace zevo {

void EndThread(void* library) { xmlDllMain(library, DLL_THREAD_DETACH, nullptr); }

void EndLibrary(void* library) {
  RunThreadExits();
  xmlCleanupParser();
  xmlDllMain(library, DLL_PROCESS_DETACH, nullptr);
}

}  // namespace zevo
