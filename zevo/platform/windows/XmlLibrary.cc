#include <zevo/platform/windows/XmlLibrary.h>

#include <windows.h>
// After windows.h.
#include <libxml/parser.h>

// Its header has it only for its own build.
extern "C" int XMLCALL xmlDllMain(void* library, unsigned long reason, void* reserved);

namespace zevo {

void ForgetXmlOfThread(void* library) { xmlDllMain(library, DLL_THREAD_DETACH, nullptr); }

void ForgetXml(void* library) {
  xmlCleanupParser();
  xmlDllMain(library, DLL_PROCESS_DETACH, nullptr);
}

}  // namespace zevo
