// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_EVENTFACE_H_
#define ZEVO_COMPONENT_EVENTFACE_H_

#include <olectl.h>
#include <zevo/component/ConnectionPoint.h>
#include <zevo/component/Enumerator.h>
#include <zevo/component/Face.h>

#include <memory>
#include <span>
#include <utility>

namespace zevo::component {

inline void CopyPoint(const Microsoft::WRL::ComPtr<IConnectionPoint>& item, IConnectionPoint*& element) {
  item.CopyTo(&element);
}
using PointEnumerator =
    Enumerator<IEnumConnectionPoints, IConnectionPoint*, Microsoft::WRL::ComPtr<IConnectionPoint>, &CopyPoint>;

/// The face of an object that raises events, to whose one event interface hosts connect.
template <class T>
class EventFace : public Face<T>, public IConnectionPointContainer {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override { return Face<T>::QueryInterface(id, object); }
  STDMETHODIMP_(ULONG) AddRef() override { return Face<T>::AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return Face<T>::Release(); }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override {
    if (points == nullptr) return E_POINTER;
    *points = nullptr;
    return this->Do([&] {
      const Microsoft::WRL::ComPtr<IConnectionPoint> point(&events_);
      *points = new PointEnumerator({point});
    });
  }
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (id != event_interface_id_) return CONNECT_E_NOCONNECTION;
    *point = &events_;
    AddRef();
    return S_OK;
  }

 protected:
  EventFace(std::shared_ptr<T> core, const IID& eventInterfaceId)
      : Face<T>(std::move(core)), event_interface_id_(eventInterfaceId), events_(*this, eventInterfaceId) {}

  /// See `ConnectionPoint::Raise`. A handler may release the last reference of the host: the method in which events are
  /// raised holds one of its own.
  void Raise(DISPID member, std::span<VARIANT> arguments) const { events_.Raise(member, arguments); }

 private:
  void* Find(const IID& id) override {
    if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
    return Face<T>::Find(id);
  }
  GUID EventInterfaceId() const override { return event_interface_id_; }

  IID event_interface_id_;
  ConnectionPoint events_;
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_EVENTFACE_H_
