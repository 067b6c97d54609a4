// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/ConnectionPoint.h>

#include <oleauto.h>
#include <olectl.h>
#include <zevo/Error.h>
#include <zevo/component/Conversions.h>
#include <zevo/component/Enumerator.h>
#include <zevo/component/ErrorTranslation.h>

#include <algorithm>
#include <string>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

struct KeptConnection {
  DWORD cookie;
  ComPtr<IDispatch> sink;
};
void CopyConnection(const KeptConnection& item, CONNECTDATA& element) {
  element.dwCookie = item.cookie;
  item.sink.CopyTo(reinterpret_cast<IDispatch**>(&element.pUnk));
}
using ConnectionEnumerator = Enumerator<IEnumConnections, CONNECTDATA, KeptConnection, &CopyConnection>;

std::string TakeText(BSTR& text) {
  std::string result = TextOf(text);
  SysFreeString(text);
  text = nullptr;
  return result;
}

// Throws what a handler of the host raised. With DISP_E_EXCEPTION the number is in `exception`.
[[noreturn]] void ThrowFailure(HRESULT result, EXCEPINFO& exception) {
  if (result == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
    result = exception.scode != 0 ? exception.scode : exception.wCode;
  }
  const std::string source = TakeText(exception.bstrSource);
  const std::string description = TakeText(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  throw Error(static_cast<int32_t>(ErrorNumber(result)), source, description);
}

}  // namespace

void ConnectionPoint::Raise(DISPID member, std::span<VARIANT> arguments) const {
  // A copy: a handler may disconnect itself or others.
  const std::vector<Connection> connections = connections_;
  for (const Connection& connection : connections) {
    DISPPARAMS parameters{.rgvarg = arguments.data(),
                          .rgdispidNamedArgs = nullptr,
                          .cArgs = static_cast<UINT>(arguments.size()),
                          .cNamedArgs = 0};
    EXCEPINFO exception{};
    const HRESULT raised = connection.sink->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                                   nullptr, &exception, nullptr);
    if (FAILED(raised) && raised != DISP_E_MEMBERNOTFOUND) ThrowFailure(raised, exception);
  }
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = id == IID_IUnknown || id == IID_IConnectionPoint ? static_cast<IConnectionPoint*>(this) : nullptr;
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* id) {
  if (id == nullptr) return E_POINTER;
  *id = event_interface_id_;
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = &owner_;
  owner_.AddRef();
  return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  // The sinks of some hosts know only the event interface, those of others only IDispatch.
  ComPtr<IDispatch> target;
  if (FAILED(sink->QueryInterface(event_interface_id_, reinterpret_cast<void**>(target.GetAddressOf()))) &&
      FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(target.GetAddressOf())))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  return Guarded(event_interface_id_, [&] {
    connections_.push_back({last_cookie_ + 1, target});
    *cookie = ++last_cookie_;
  });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
  if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
  // Releasing the sink may run code that comes back here, so that happens after the erasure.
  const ComPtr<IDispatch> sink = found->sink;
  connections_.erase(found);
  return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Guarded(event_interface_id_, [&] {
    std::vector<KeptConnection> kept;
    for (const Connection& connection : connections_) kept.push_back({connection.cookie, connection.sink});
    *connections = new ConnectionEnumerator(std::move(kept));
  });
}

}  // namespace zevo::component
