#include <zevo/component/Registration.h>

#include <objbase.h>
#include <oleauto.h>
#include <zevo/component/TypeLibrary.h>
#include <zevo/platform/windows/LibraryFile.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
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

void AddClass(std::vector<Value>& values, const Documentation& documentation, const TYPEATTR& type,
              const std::wstring& library, const std::wstring& libraryId, const std::wstring& version) {
  const std::wstring program_id = library + L"." + documentation.name;
  const std::wstring key = L"CLSID\\" + Text(type.guid);
  values.push_back({program_id, L"", documentation.help});
  values.push_back({program_id + L"\\CLSID", L"", Text(type.guid)});
  values.push_back({key, L"", documentation.help});
  values.push_back({key + L"\\InprocServer32", L"", LibraryFile()});
  values.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
  values.push_back({key + L"\\ProgID", L"", program_id});
  values.push_back({key + L"\\Programmable", L"", L""});
  values.push_back({key + L"\\TypeLib", L"", libraryId});
  values.push_back({key + L"\\Version", L"", version});
}

void AddInterface(std::vector<Value>& values, const Documentation& documentation, const TYPEATTR& type,
                  const std::wstring& libraryId, const std::wstring& libraryVersion) {
  const std::wstring key = L"Interface\\" + Text(type.guid);
  const bool dual = (type.wTypeFlags & TYPEFLAG_FDUAL) != 0;
  values.push_back({key, L"", documentation.name});
  values.push_back({key + L"\\ProxyStubClsid32", L"", dual ? kTypeLibraryMarshaller : kDispatchMarshaller});
  values.push_back({key + L"\\TypeLib", L"", libraryId});
  values.push_back({key + L"\\TypeLib", L"Version", libraryVersion});
}

struct Plan {
  std::vector<Value> values;
  std::wstring type_library;  // the key of its version
};

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
      AddClass(plan.values, of_type, *type, documentation.name, Text(id), version);
    } else if (type->typekind == TKIND_DISPATCH) {
      AddInterface(plan.values, of_type, *type, Text(id), hexadecimal_version);
    }
  }
  const std::wstring file = LibraryFile();
  plan.type_library = L"TypeLib\\" + Text(id) + L"\\" + hexadecimal_version;
  plan.values.push_back({plan.type_library, L"", documentation.help});
  plan.values.push_back({plan.type_library + L"\\0\\" + kPlatform, L"", file});
  plan.values.push_back({plan.type_library + L"\\FLAGS", L"", L"0"});
  plan.values.push_back({plan.type_library + L"\\HELPDIR", L"", file.substr(0, file.rfind(L'\\'))});
  return plan;
}

class Key {
 public:
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  Key() = default;
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

// Whether a key has neither keys nor values in it.
bool IsEmpty(HKEY root, const std::wstring& path) {
  Key key;
  DWORD keys = 0;
  DWORD values = 0;
  return RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.Receive()) == ERROR_SUCCESS &&
         RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                          nullptr, nullptr) == ERROR_SUCCESS &&
         keys == 0 && values == 0;
}

// Removes a key and everything in it, and the keys above that have nothing else in them.
LSTATUS Remove(HKEY root, const std::wstring& key) {
  std::wstring path = kClasses + key;
  const LSTATUS removed = RegDeleteTreeW(root, path.c_str());
  if (removed == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
  if (removed != ERROR_SUCCESS) return removed;
  for (size_t end = path.rfind(L'\\'); end + 1 > std::wstring_view(kClasses).size(); end = path.rfind(L'\\')) {
    path.resize(end);
    if (!IsEmpty(root, path) || RegDeleteKeyW(root, path.c_str()) != ERROR_SUCCESS) break;
  }
  return ERROR_SUCCESS;
}

LSTATUS Remove(HKEY root, const Plan& plan) {
  LSTATUS result = ERROR_SUCCESS;
  const auto remove = [&](const std::wstring& key) {
    const LSTATUS removed = Remove(root, key);
    if (result == ERROR_SUCCESS) result = removed;
  };
  for (const Value& value : plan.values) {
    const bool of_library = value.key.starts_with(plan.type_library);
    const bool whole = value.key.rfind(L'\\') == value.key.find(L'\\');  // no key under another of ours
    if (!of_library && value.name.empty() && whole) remove(value.key);
  }
  // The server of the other processor has its place in the same key.
  remove(plan.type_library + L"\\0\\" + kPlatform);
  Key other;
  const std::wstring other_platforms = kClasses + plan.type_library + L"\\0";
  if (RegOpenKeyExW(root, other_platforms.c_str(), 0, KEY_READ, other.Receive()) != ERROR_SUCCESS) {
    remove(plan.type_library);
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
