// SPDX-License-Identifier: Apache-2.0
// What COM and regsvr32 call.

#include <windows.h>
// After windows.h.
#include <objbase.h>
#include <olectl.h>
#include <zevo/component/Classes.h>
#include <zevo/component/ErrorTranslation.h>
#include <zevo/component/LiveObject.h>
#include <zevo/component/Registration.h>
#include <zevo/platform/windows/Unloading.h>

namespace zevo::component {

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID reserved) {
  if (reason == DLL_THREAD_DETACH) EndThread(library);
  // Without `reserved` the server is unloaded from a process that lives on; with it, the process is ending.
  if (reason == DLL_PROCESS_DETACH && reserved == nullptr) EndLibrary(library);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  IClassFactory* factory = nullptr;
  const HRESULT ready = Guarded(id, [&] { factory = FactoryOf(classId); });
  if (FAILED(ready)) return ready;
  return factory == nullptr ? CLASS_E_CLASSNOTAVAILABLE : factory->QueryInterface(id, object);
}

STDAPI DllCanUnloadNow() { return LiveObject::Count() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
  return FAILED(Guarded(IID_NULL, [] { Register(); })) ? SELFREG_E_CLASS : S_OK;
}

STDAPI DllUnregisterServer() {
  return FAILED(Guarded(IID_NULL, [] { Unregister(); })) ? SELFREG_E_CLASS : S_OK;
}

/// How many objects of the server are held, for tests of hosts.
extern "C" LONG STDAPICALLTYPE ZevoLiveObjects() { return LiveObject::Count(); }

}  // namespace zevo::component
