// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_COMPONENT_EVENTSINK_H_
#define ZEVO_TESTS_COMPONENT_EVENTSINK_H_

#include <functional>
#include <string>
#include <vector>

#include <zevo/component/Adopt.h>

#include "tests/component/Com.h"

namespace zevo::testing {

/// A host's end of the events of an object, which knows the members of the event interface by their numbers.
class Sink : public IDispatch {
 public:
  explicit Sink(const IID& eventInterfaceId) : event_interface_id_(eventInterfaceId) {}
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch || id == event_interface_id_ ? this : nullptr;
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
    const HRESULT result = Take(member, *arguments);
    if (SUCCEEDED(result) || result == DISP_E_MEMBERNOTFOUND) return result;
    exception->scode = result;
    exception->bstrSource = SysAllocString(L"handler");
    exception->bstrDescription = SysAllocString(L"Divis\x00E3o por zero");
    return DISP_E_EXCEPTION;
  }

 protected:
  virtual ~Sink() = default;

  /// An event. A failure is raised with the text of a division by zero.
  virtual HRESULT Take(DISPID member, DISPPARAMS& arguments) = 0;

 private:
  IID event_interface_id_;
  ULONG references_ = 1;
};

/// Of the events of a streamer. Notes each as text and calls a handler, whose failure it raises.
class EventSink final : public Sink {
 public:
  EventSink() : Sink(__uuidof(__AuditFileStreamer)) {}

  std::vector<std::wstring> events;
  std::function<HRESULT(const std::wstring& name, IDispatch** entity)> on_entity;

 private:
  HRESULT Take(DISPID member, DISPPARAMS& arguments) override {
    if (member == 2) {
      EXPECT_EQ(arguments.cArgs, 0U);
      events.emplace_back(L"finished");
      return S_OK;
    }
    EXPECT_EQ(member, 1);
    EXPECT_EQ(arguments.cArgs, 2U);
    EXPECT_EQ(V_VT(&arguments.rgvarg[1]), VT_BSTR);
    EXPECT_EQ(V_VT(&arguments.rgvarg[0]), VT_BYREF | VT_DISPATCH);
    const std::wstring name = V_BSTR(&arguments.rgvarg[1]);
    IDispatch** entity = V_DISPATCHREF(&arguments.rgvarg[0]);
    events.push_back(name + L" " + InterfaceName(*entity));
    return on_entity ? on_entity(name, entity) : S_OK;
  }

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
};

inline ComPtr<EventSink> MakeSink() { return component::Adopt(new EventSink); }

/// Of the events of a checker. Notes the rule of each finding and what was read, and calls handlers, whose failure it
/// raises.
class FindingSink final : public Sink {
 public:
  FindingSink() : Sink(__uuidof(__AuditFileChecker)) {}

  std::vector<std::wstring> rules;
  std::vector<double> progress;
  std::function<HRESULT(_Finding& finding)> on_finding;
  std::function<HRESULT()> on_progress;

 private:
  HRESULT Take(DISPID member, DISPPARAMS& arguments) override {
    EXPECT_EQ(arguments.cArgs, 1U);
    if (member == 2) {
      EXPECT_EQ(V_VT(&arguments.rgvarg[0]), VT_R8);
      progress.push_back(V_R8(&arguments.rgvarg[0]));
      return on_progress ? on_progress() : S_OK;
    }
    EXPECT_EQ(member, 1);
    EXPECT_EQ(V_VT(&arguments.rgvarg[0]), VT_DISPATCH);
    ComPtr<_Finding> finding;
    EXPECT_EQ(V_DISPATCH(&arguments.rgvarg[0])
                  ->QueryInterface(__uuidof(_Finding), reinterpret_cast<void**>(finding.GetAddressOf())),
              S_OK);
    Bstr rule;
    EXPECT_EQ(finding->get_Rule(rule.Receive()), S_OK);
    rules.push_back(rule.Text());
    return on_finding ? on_finding(*finding.Get()) : S_OK;
  }
};

inline ComPtr<FindingSink> MakeFindingSink() { return component::Adopt(new FindingSink); }

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_COMPONENT_EVENTSINK_H_
