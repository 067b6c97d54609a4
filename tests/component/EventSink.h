// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_COMPONENT_EVENTSINK_H_
#define ZEVO_TESTS_COMPONENT_EVENTSINK_H_

#include <functional>
#include <string>
#include <vector>

#include <zevo/component/Adopt.h>

#include "tests/component/Com.h"

namespace zevo::testing {

/// A host's end of the events of a streamer. Notes each as text and calls a handler, whose failure it raises.
class EventSink final : public IDispatch {
 public:
  EventSink() = default;
  EventSink(const EventSink&) = delete;
  EventSink& operator=(const EventSink&) = delete;

  std::vector<std::wstring> events;
  std::function<HRESULT(const std::wstring& name, IDispatch** entity)> on_entity;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(__AuditFileStreamer) ? this : nullptr;
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
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*, EXCEPINFO* exception,
                      UINT*) override {
    EXPECT_EQ(flags, DISPATCH_METHOD);
    if (member == 2) {
      EXPECT_EQ(arguments->cArgs, 0U);
      events.emplace_back(L"finished");
      return S_OK;
    }
    EXPECT_EQ(member, 1);
    EXPECT_EQ(arguments->cArgs, 2U);
    EXPECT_EQ(V_VT(&arguments->rgvarg[1]), VT_BSTR);
    EXPECT_EQ(V_VT(&arguments->rgvarg[0]), VT_BYREF | VT_DISPATCH);
    const std::wstring name = V_BSTR(&arguments->rgvarg[1]);
    IDispatch** entity = V_DISPATCHREF(&arguments->rgvarg[0]);
    events.push_back(name + L" " + InterfaceName(*entity));
    if (!on_entity) return S_OK;
    const HRESULT result = on_entity(name, entity);
    if (SUCCEEDED(result) || result == DISP_E_MEMBERNOTFOUND) return result;
    exception->scode = result;
    exception->bstrSource = SysAllocString(L"handler");
    exception->bstrDescription = SysAllocString(L"Divis\x00E3o por zero");
    return DISP_E_EXCEPTION;
  }

 private:
  ~EventSink() = default;

  static std::wstring InterfaceName(IDispatch* object) {
    if (object == nullptr) return L"Nothing";
    ComPtr<ITypeInfo> type;
    Bstr name;
    if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type)) ||
        FAILED(type->GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr))) {
      return L"?";
    }
    return name.Text();
  }

  ULONG references_ = 1;
};

inline ComPtr<EventSink> MakeSink() { return component::Adopt(new EventSink); }

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_COMPONENT_EVENTSINK_H_
