// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/EventFace.h>
#include <zevo/component/FaceOfEntity.h>
#include <zevo/component/FileFaces.h>

#include <array>
#include <memory>
#include <string>
#include <utility>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

class AuditFileStreamerFace final : public EventFace<zevo::AuditFileStreamer> {
 public:
  explicit AuditFileStreamerFace(std::shared_ptr<zevo::AuditFileStreamer> streamer)
      : EventFace(std::move(streamer), __uuidof(__AuditFileStreamer)) {
    core().ReadEntity = [this](const std::string& entityName, const std::shared_ptr<Record>& entity) {
      RaiseReadEntity(entityName, FaceOfEntity(entity));
    };
    core().FinishedReading = [this] { Raise(kFinishedReading, {}); };
  }

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

 private:
  // The members of the event interface.
  static constexpr DISPID kReadEntity = 1;
  static constexpr DISPID kFinishedReading = 2;

  // The record goes by reference; what a handler puts in its place is ignored.
  void RaiseReadEntity(const std::string& entityName, ComPtr<IDispatch> entity) {
    const std::unique_ptr<OLECHAR, decltype(&SysFreeString)> name(NewBstr(entityName), &SysFreeString);
    std::array<VARIANT, 2> arguments{};
    V_VT(&arguments[0]) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&arguments[0]) = entity.GetAddressOf();
    V_VT(&arguments[1]) = VT_BSTR;
    V_BSTR(&arguments[1]) = name.get();
    Raise(kReadEntity, arguments);
  }
};

}  // namespace

ZEVO_FACE_OF(AuditFileStreamer);

}  // namespace zevo::component
