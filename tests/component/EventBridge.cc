// SPDX-License-Identifier: Apache-2.0
// For script hosts that cannot connect to events themselves: a COM server whose one object, ZevoTest.EventBridge,
// passes the events of any source on to the methods of the same names of a script's object.

#include <dispex.h>
#include <objbase.h>
#include <ocidl.h>
#include <olectl.h>
#include <zevo/component/Adopt.h>

#include <cwchar>
#include <utility>
#include <vector>

namespace {

using Microsoft::WRL::ComPtr;
using zevo::component::Adopt;

constexpr CLSID kBridgeId = {0x2b1f1f0a, 0x7c53, 0x4f0e, {0x8d, 0x0c, 0x55, 0x1b, 0x0b, 0x6e, 0x5c, 0x11}};
constexpr DISPID kConnect = 1;
constexpr DISPID kDisconnect = 2;

class Dispatch : public IDispatch {
 public:
  Dispatch() = default;
  Dispatch(const Dispatch&) = delete;
  Dispatch& operator=(const Dispatch&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }

 protected:
  virtual ~Dispatch() = default;

 private:
  ULONG references_ = 1;
};

// Knows the names of the events and calls the handler's methods.
class Sink final : public Dispatch {
 public:
  Sink(ComPtr<ITypeInfo> events, ComPtr<IDispatch> handler)
      : events_(std::move(events)), handler_(std::move(handler)) {}

  STDMETHODIMP Invoke(DISPID member, REFIID, LCID locale, WORD, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO* exception, UINT* wrongArgument) override {
    BSTR name = nullptr;
    UINT named = 0;
    if (FAILED(events_->GetNames(member, &name, 1, &named))) return DISP_E_MEMBERNOTFOUND;
    // Objects of scripts know their members by this interface, some by no other.
    DISPID method = DISPID_UNKNOWN;
    ComPtr<IDispatchEx> script;
    const HRESULT found = SUCCEEDED(handler_.As(&script))
                              ? script->GetDispID(name, fdexNameCaseInsensitive, &method)
                              : handler_->GetIDsOfNames(IID_NULL, &name, 1, locale, &method);
    SysFreeString(name);
    if (FAILED(found)) return DISP_E_MEMBERNOTFOUND;
    // The script languages of Wine take no typed references.
    std::vector<VARIANT> values(arguments->cArgs);
    for (UINT i = 0; i < arguments->cArgs; ++i) VariantCopyInd(&values[i], &arguments->rgvarg[i]);
    DISPPARAMS parameters{values.data(), nullptr, arguments->cArgs, 0};
    const HRESULT called =
        handler_->Invoke(method, IID_NULL, locale, DISPATCH_METHOD, &parameters, result, exception, wrongArgument);
    for (VARIANT& value : values) VariantClear(&value);
    return called;
  }

 private:
  ComPtr<ITypeInfo> events_;
  ComPtr<IDispatch> handler_;
};

class Bridge final : public Dispatch {
 public:
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    *ids = _wcsicmp(names[0], L"Connect") == 0      ? kConnect
           : _wcsicmp(names[0], L"Disconnect") == 0 ? kDisconnect
                                                    : DISPID_UNKNOWN;
    return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) override {
    if (member == kDisconnect) return Disconnect();
    if (member != kConnect || arguments->cArgs != 2) return DISP_E_MEMBERNOTFOUND;
    return Connect(ObjectIn(arguments->rgvarg[1]), ObjectIn(arguments->rgvarg[0]));
  }

 private:
  static ComPtr<IDispatch> ObjectIn(const VARIANT& argument) {
    VARIANT plain;
    VariantInit(&plain);
    VariantCopyInd(&plain, const_cast<VARIANT*>(&argument));
    ComPtr<IDispatch> object;
    if (V_VT(&plain) == VT_DISPATCH) object = V_DISPATCH(&plain);
    VariantClear(&plain);
    return object;
  }

  // As the script host of Windows does it: by the class's description of its events.
  HRESULT Connect(const ComPtr<IDispatch>& source, const ComPtr<IDispatch>& handler) {
    ComPtr<IProvideClassInfo2> information;
    ComPtr<IConnectionPointContainer> container;
    ComPtr<ITypeInfo> type;
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> events;
    IID id;
    UINT index = 0;
    HRESULT result = source.As(&information);
    if (SUCCEEDED(result)) result = information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id);
    if (SUCCEEDED(result)) result = source->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type);
    if (SUCCEEDED(result)) result = type->GetContainingTypeLib(&library, &index);
    if (SUCCEEDED(result)) result = library->GetTypeInfoOfGuid(id, &events);
    if (SUCCEEDED(result)) result = source.As(&container);
    if (SUCCEEDED(result)) result = container->FindConnectionPoint(id, &point_);
    if (FAILED(result)) return result;
    return point_->Advise(Adopt(new Sink(events, handler)).Get(), &cookie_);
  }
  HRESULT Disconnect() {
    const HRESULT result = point_ ? point_->Unadvise(cookie_) : CONNECT_E_NOCONNECTION;
    point_.Reset();
    return result;
  }

  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

class Factory final : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** object) override {
    return Adopt(new Bridge)->QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  static Factory factory;
  return classId == kBridgeId ? factory.QueryInterface(id, object) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return S_FALSE; }
