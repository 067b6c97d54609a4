// SPDX-License-Identifier: Apache-2.0
#include <olectl.h>
#include <zevo/component/ConnectionPoint.h>
#include <zevo/component/Enumerator.h>
#include <zevo/component/FaceOfEntity.h>
#include <zevo/component/FileFaces.h>

#include <array>
#include <string>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

void CopyPoint(const ComPtr<IConnectionPoint>& item, IConnectionPoint*& element) { item.CopyTo(&element); }
using PointEnumerator = Enumerator<IEnumConnectionPoints, IConnectionPoint*, ComPtr<IConnectionPoint>, &CopyPoint>;

class AuditFileStreamerFace final : public Face<zevo::AuditFileStreamer>, public IConnectionPointContainer {
 public:
  explicit AuditFileStreamerFace(std::shared_ptr<zevo::AuditFileStreamer> streamer)
      : Face(std::move(streamer)), events_(*this, __uuidof(__AuditFileStreamer)) {
    core().ReadEntity = [this](const std::string& entityName, const std::shared_ptr<Record>& entity) {
      RaiseReadEntity(entityName, FaceOfEntity(entity));
    };
    core().FinishedReading = [this] { events_.Raise(kFinishedReading, {}); };
  }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override { return Face::QueryInterface(id, object); }
  STDMETHODIMP_(ULONG) AddRef() override { return Face::AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return Face::Release(); }

  ZEVO_READ_ONLY(AuditException)
  ZEVO_PROPERTY(AuditFileName)
  ZEVO_OPERATION(OpenAuditFile)
  STDMETHODIMP ReadAuditFile(VARIANT_BOOL wait, VARIANT_BOOL* result) override {
    // Keeps the object alive: a handler may release the last reference of the host.
    const ComPtr<IUnknown> held(static_cast<::_AuditFileStreamer*>(this));
    return Answer(result, [&] { return core().ReadAuditFile(wait != VARIANT_FALSE); });
  }
  ZEVO_OPERATION(CloseAuditFile)
  ZEVO_PROCEDURE(AbortReading)

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override {
    if (points == nullptr) return E_POINTER;
    *points = nullptr;
    return Do([&] { *points = new PointEnumerator({ComPtr<IConnectionPoint>(&events_)}); });
  }
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (id != EventInterfaceId()) return CONNECT_E_NOCONNECTION;
    *point = &events_;
    AddRef();
    return S_OK;
  }

 private:
  // The members of the event interface.
  static constexpr DISPID kReadEntity = 1;
  static constexpr DISPID kFinishedReading = 2;

  void* Find(const IID& id) override {
    if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
    return Face::Find(id);
  }
  GUID EventInterfaceId() const override { return __uuidof(__AuditFileStreamer); }

  // The record goes by reference; what a handler puts in its place is ignored.
  void RaiseReadEntity(const std::string& entityName, ComPtr<IDispatch> entity) {
    const std::unique_ptr<OLECHAR, decltype(&SysFreeString)> name(NewBstr(entityName), &SysFreeString);
    std::array<VARIANT, 2> arguments{};
    V_VT(&arguments[0]) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&arguments[0]) = entity.GetAddressOf();
    V_VT(&arguments[1]) = VT_BSTR;
    V_BSTR(&arguments[1]) = name.get();
    events_.Raise(kReadEntity, arguments);
  }

  ConnectionPoint events_;
};

}  // namespace

ZEVO_FACE_OF(AuditFileStreamer);

}  // namespace zevo::component
