#ifndef ZEVO_PLATFORM_WINDOWS_XMLLIBRARY_H_
#define ZEVO_PLATFORM_WINDOWS_XMLLIBRARY_H_

namespace zevo {

// libxml2 inside this library has no start-up and end of its own. `library` is the handle that the system gives.

/// Frees what libxml2 keeps for the calling thread, which ends.
void ForgetXmlOfThread(void* library);

/// Frees what libxml2 keeps for the process, as this library is unloaded.
void ForgetXml(void* library);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_WINDOWS_XMLLIBRARY_H_
