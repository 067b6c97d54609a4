// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Faces.h>

#include <zevo/Error.h>

namespace zevo::component {

std::shared_ptr<void> CoreBehind(IUnknown* face, const IID& interfaceId) {
  if (face == nullptr) return nullptr;
  Microsoft::WRL::ComPtr<CoreAccess> access;
  std::shared_ptr<void> core;
  if (SUCCEEDED(face->QueryInterface(kCoreAccessId, reinterpret_cast<void**>(access.GetAddressOf())))) {
    core = access->Behind(interfaceId);
  }
  if (core == nullptr) throw MakeRunTimeError(RunTimeError::kTypeMismatch);
  return core;
}

}  // namespace zevo::component
