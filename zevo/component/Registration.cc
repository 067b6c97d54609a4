// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Registration.h>

#include <objbase.h>
#include <oleauto.h>
#include <zevo/component/TypeLibrary.h>
#include <zevo/platform/windows/LibraryFile.h>

#include <cstdio>
#include <cwchar>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

#ifdef _WIN64
constexpr const wchar_t* kPlatform = L"win64";
#else
constexpr const wchar_t* kPlatform = L"win32";
#endif

// The system's own marshallers: by the type library, and of late-bound calls.
constexpr const wchar_t* kTypeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kDispatchMarshaller = L"{00020420-0000-0000-C000-000000000046}";

// The views of the registry for programs of 64 and of 32 bits; some keys are shared by both.
constexpr REGSAM kViews[] = {KEY_WOW64_64KEY, KEY_WOW64_32KEY};
// The view of this program.
constexpr REGSAM kOwnView = 0;

// A value under Software\Classes. The one without a name is the key's own.
struct Value {
  std::wstring key;
  std::wstring name;
  std::wstring text;
};

std::wstring Text(const GUID& id) {
  wchar_t text[39];
  StringFromGUID2(id, text, 39);
  return text;
}

struct Documentation {
  std::wstring name;
  std::wstring help;
};

std::wstring Take(BSTR text) {
  std::wstring result = text == nullptr ? L"" : text;
  SysFreeString(text);
  return result;
}

Documentation DocumentationOf(ITypeLib& library, INT index) {
  BSTR name = nullptr;
  BSTR help = nullptr;
  RequireSuccess(library.GetDocumentation(index, &name, &help, nullptr, nullptr));
  return {Take(name), Take(help)};
}

struct Plan {
  std::vector<Value> values;
  std::vector<std::wstring> classes;  // their keys, in which the file is named
  std::vector<std::wstring> shared;   // keys that every copy of the server writes alike
  std::wstring type_library;          // the key of its version
};

std::wstring ServerKey(const std::wstring& classKey) { return classKey + L"\\InprocServer32"; }

void AddClass(Plan& plan, const Documentation& documentation, const TYPEATTR& type, const std::wstring& library,
              const std::wstring& libraryId, const std::wstring& version) {
  const std::wstring program_id = library + L"." + documentation.name;
  const std::wstring key = L"CLSID\\" + Text(type.guid);
  plan.shared.push_back(program_id);
  plan.values.push_back({program_id, L"", documentation.help});
  plan.values.push_back({program_id + L"\\CLSID", L"", Text(type.guid)});
  plan.classes.push_back(key);
  plan.values.push_back({key, L"", documentation.help});
  plan.values.push_back({ServerKey(key), L"", LibraryFile()});
  plan.values.push_back({ServerKey(key), L"ThreadingModel", L"Apartment"});
  plan.values.push_back({key + L"\\ProgID", L"", program_id});
  plan.values.push_back({key + L"\\Programmable", L"", L""});
  plan.values.push_back({key + L"\\TypeLib", L"", libraryId});
  plan.values.push_back({key + L"\\Version", L"", version});
}

void AddInterface(Plan& plan, const Documentation& documentation, const TYPEATTR& type, const std::wstring& libraryId,
                  const std::wstring& libraryVersion) {
  const std::wstring key = L"Interface\\" + Text(type.guid);
  const bool dual = (type.wTypeFlags & TYPEFLAG_FDUAL) != 0;
  plan.shared.push_back(key);
  plan.values.push_back({key, L"", documentation.name});
  plan.values.push_back({key + L"\\ProxyStubClsid32", L"", dual ? kTypeLibraryMarshaller : kDispatchMarshaller});
  plan.values.push_back({key + L"\\TypeLib", L"", libraryId});
  plan.values.push_back({key + L"\\TypeLib", L"Version", libraryVersion});
}

std::wstring PlatformsKey(const Plan& plan) { return plan.type_library + L"\\0"; }
std::wstring PlatformKey(const Plan& plan) { return PlatformsKey(plan) + L"\\" + kPlatform; }

// Everything follows from the type library.
Plan MakePlan() {
  const ComPtr<ITypeLib> library = LoadTypeLibrary();
  TLIBATTR* attributes = nullptr;
  RequireSuccess(library->GetLibAttr(&attributes));
  const GUID id = attributes->guid;
  const unsigned major = attributes->wMajorVerNum;
  const unsigned minor = attributes->wMinorVerNum;
  library->ReleaseTLibAttr(attributes);

  const Documentation documentation = DocumentationOf(*library.Get(), -1);
  wchar_t version[16];
  wchar_t hexadecimal_version[16];
  std::swprintf(version, 16, L"%u.%u", major, minor);
  std::swprintf(hexadecimal_version, 16, L"%x.%x", major, minor);  // as keys of type libraries have it

  Plan plan;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> info;
    TYPEATTR* type = nullptr;
    RequireSuccess(library->GetTypeInfo(i, &info));
    RequireSuccess(info->GetTypeAttr(&type));
    const std::unique_ptr<TYPEATTR, std::function<void(TYPEATTR*)>> owner(
        type, [&](TYPEATTR* owned) { info->ReleaseTypeAttr(owned); });
    const Documentation of_type = DocumentationOf(*library.Get(), static_cast<INT>(i));
    if (type->typekind == TKIND_COCLASS && (type->wTypeFlags & TYPEFLAG_FCANCREATE) != 0) {
      AddClass(plan, of_type, *type, documentation.name, Text(id), version);
    } else if (type->typekind == TKIND_DISPATCH) {
      AddInterface(plan, of_type, *type, Text(id), hexadecimal_version);
    }
  }
  const std::wstring file = LibraryFile();
  plan.type_library = L"TypeLib\\" + Text(id) + L"\\" + hexadecimal_version;
  plan.values.push_back({plan.type_library, L"", documentation.help});
  plan.values.push_back({PlatformKey(plan), L"", file});
  plan.values.push_back({plan.type_library + L"\\FLAGS", L"", L"0"});
  plan.values.push_back({plan.type_library + L"\\HELPDIR", L"", file.substr(0, file.rfind(L'\\'))});
  return plan;
}

class Key {
 public:
  Key() = default;
  Key(Key&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Key& operator=(Key&&) = delete;
  ~Key() {
    if (handle_ != nullptr) RegCloseKey(handle_);
  }
  HKEY* Receive() { return &handle_; }
  HKEY Get() const { return handle_; }

 private:
  HKEY handle_ = nullptr;
};

constexpr const wchar_t* kClasses = L"Software\\Classes\\";

LSTATUS Write(HKEY root, const Value& value) {
  Key key;
  const LSTATUS created = RegCreateKeyExW(root, (kClasses + value.key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                          KEY_WRITE, nullptr, key.Receive(), nullptr);
  if (created != ERROR_SUCCESS) return created;
  return RegSetValueExW(key.Get(), value.name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.text.c_str()),
                        static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t)));
}

Key Open(HKEY root, const std::wstring& path, REGSAM access) {
  Key key;
  RegOpenKeyExW(root, path.c_str(), 0, access, key.Receive());
  return key;
}

bool Exists(HKEY root, const std::wstring& key, REGSAM view) {
  return Open(root, kClasses + key, KEY_READ | view).Get() != nullptr;
}

// The text of a system call that takes a buffer with its size and returns the length of the text, or the size it needs.
template <class Call>
std::wstring TextFrom(Call&& call) {
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = call(text.data(), static_cast<DWORD>(text.size()));
    const bool fits = size < text.size();
    text.resize(size);
    if (fits) return text;
  }
}

// The one name of a file whose path may be written in several ways; the path itself when the system cannot tell.
std::wstring FinalName(const std::wstring& path) {
  std::wstring name;
  HANDLE file = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file != INVALID_HANDLE_VALUE) {
    name = TextFrom([&](wchar_t* text, DWORD size) { return GetFinalPathNameByHandleW(file, text, size, 0); });
    CloseHandle(file);
  }
  if (name.empty()) {
    name = TextFrom([&](wchar_t* text, DWORD size) { return GetLongPathNameW(path.c_str(), text, size); });
  }
  return name.empty() ? path : name;
}

bool SameName(const std::wstring& one, const std::wstring& other) {
  return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// Whether a key's own value names the file of this server.
bool NamesThisFile(HKEY root, const std::wstring& key) {
  const Key opened = Open(root, kClasses + key, KEY_READ | kOwnView);
  DWORD bytes = 0;
  const auto get = [&](wchar_t* text) {
    return RegGetValueW(opened.Get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text, &bytes);
  };
  if (opened.Get() == nullptr || get(nullptr) != ERROR_SUCCESS) return false;
  std::wstring named(bytes / sizeof(wchar_t) + 1, L'\0');
  if (get(named.data()) != ERROR_SUCCESS) return false;
  named.resize(std::wcslen(named.c_str()));
  const std::wstring file = LibraryFile();
  return SameName(named, file) || SameName(FinalName(named), FinalName(file));
}

// Whether some copy of the server, for programs of either kind, is registered.
bool IsRegistered(HKEY root, const Plan& plan) {
  for (const REGSAM view : kViews) {
    for (const std::wstring& key : plan.classes) {
      if (Exists(root, ServerKey(key), view)) return true;
    }
  }
  return false;
}

// Whether a key has neither keys nor values in it.
bool IsEmpty(HKEY root, const std::wstring& path, REGSAM view) {
  const Key key = Open(root, path, KEY_READ | view);
  DWORD keys = 0;
  DWORD values = 0;
  return key.Get() != nullptr &&
         RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                          nullptr, nullptr) == ERROR_SUCCESS &&
         keys == 0 && values == 0;
}

// Removes a key and everything in it, and the keys above that have nothing else in them.
LSTATUS Remove(HKEY root, const std::wstring& key, REGSAM view) {
  if (!Exists(root, key, view)) return ERROR_SUCCESS;
  std::wstring path = kClasses + key;
  const size_t name = path.rfind(L'\\') + 1;
  {
    // Opened in the given view: what is deleted through an open key is in that view, whatever that of the program is.
    Key above;
    const LSTATUS opened =
        RegOpenKeyExW(root, path.substr(0, name - 1).c_str(), 0, KEY_READ | DELETE | view, above.Receive());
    if (opened != ERROR_SUCCESS) return opened;
    const LSTATUS removed = RegDeleteTreeW(above.Get(), path.c_str() + name);
    if (removed != ERROR_SUCCESS) return removed;
  }
  for (size_t end = path.rfind(L'\\'); end + 1 > std::wstring_view(kClasses).size(); end = path.rfind(L'\\')) {
    path.resize(end);
    if (!IsEmpty(root, path, view) || RegDeleteKeyExW(root, path.c_str(), view, 0) != ERROR_SUCCESS) break;
  }
  return ERROR_SUCCESS;
}

// Another copy of the server may be registered, for programs of this kind or of the other: removes what names
// this file and, when no copy is left, what all of them share.
LSTATUS Remove(HKEY root, const Plan& plan) {
  LSTATUS result = ERROR_SUCCESS;
  const auto remove = [&](const std::wstring& key, REGSAM view) {
    const LSTATUS removed = Remove(root, key, view);
    if (result == ERROR_SUCCESS) result = removed;
  };
  for (const std::wstring& key : plan.classes) {
    if (NamesThisFile(root, ServerKey(key))) remove(key, kOwnView);
  }
  if (NamesThisFile(root, PlatformKey(plan))) remove(PlatformKey(plan), kOwnView);
  const bool platforms = Exists(root, PlatformsKey(plan), kOwnView);
  if (!platforms || IsEmpty(root, kClasses + PlatformsKey(plan), kOwnView)) remove(plan.type_library, kOwnView);
  if (IsRegistered(root, plan)) return result;
  for (const REGSAM view : kViews) {
    for (const std::wstring& key : plan.shared) remove(key, view);
  }
  return result;
}

void RequireNoError(LSTATUS status) { RequireSuccess(HRESULT_FROM_WIN32(static_cast<DWORD>(status))); }

LSTATUS WriteAll(HKEY root, const Plan& plan) {
  for (const Value& value : plan.values) {
    const LSTATUS written = Write(root, value);
    if (written == ERROR_SUCCESS) continue;
    Remove(root, plan);
    return written;
  }
  return ERROR_SUCCESS;
}

}  // namespace

void Register() {
  const Plan plan = MakePlan();
  if (WriteAll(HKEY_LOCAL_MACHINE, plan) != ERROR_SUCCESS) RequireNoError(WriteAll(HKEY_CURRENT_USER, plan));
}

void Unregister() {
  const Plan plan = MakePlan();
  const LSTATUS machine = Remove(HKEY_LOCAL_MACHINE, plan);
  RequireNoError(Remove(HKEY_CURRENT_USER, plan));
  RequireNoError(machine);
}

}  // namespace zevo::component
