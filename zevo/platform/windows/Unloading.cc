// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/windows/Unloading.h>

#include <windows.h>
// After windows.h.
#include <libxml/parser.h>

// The header declares it only for the build of libxml2 itself.
extern "C" int XMLCALL xmlDllMain(void* library, DWORD reason, void* reserved);

namespace zevo {

void EndThread(void* library) { xmlDllMain(library, DLL_THREAD_DETACH, nullptr); }

void EndLibrary(void* library) {
  RunThreadExits();
  xmlCleanupParser();
  xmlDllMain(library, DLL_PROCESS_DETACH, nullptr);
}

}  // namespace zevo
