// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_CONNECTIONPOINT_H_
#define ZEVO_COMPONENT_CONNECTIONPOINT_H_

#include <ocidl.h>
#include <wrl/client.h>

#include <span>
#include <vector>

namespace zevo::component {

/// Where hosts connect to the events of an object. It is a part of the object, which counts the references to both.
class ConnectionPoint final : public IConnectionPoint {
 public:
  ConnectionPoint(IConnectionPointContainer& owner, const IID& eventInterfaceId)
      : owner_(owner), event_interface_id_(eventInterfaceId) {}
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;

  /// Calls a member of every sink that is connected as the event begins, in the order in which they came. The arguments
  /// are in reverse order. A sink without the member is passed over; any other failure ends the event and is thrown as
  /// `Error`.
  void Raise(DISPID member, std::span<VARIANT> arguments) const;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  struct Connection {
    DWORD cookie;
    Microsoft::WRL::ComPtr<IDispatch> sink;
  };

  IConnectionPointContainer& owner_;
  IID event_interface_id_;
  std::vector<Connection> connections_;
  DWORD last_cookie_ = 0;
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_CONNECTIONPOINT_H_
