// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_FACEOFENTITY_H_
#define ZEVO_COMPONENT_FACEOFENTITY_H_

#include <oaidl.h>
#include <wrl/client.h>
#include <zevo/model/Record.h>

#include <memory>

namespace zevo::component {

/// The face of an entity's record, whatever its class; null for none.
Microsoft::WRL::ComPtr<IDispatch> FaceOfEntity(const std::shared_ptr<Record>& record);

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_FACEOFENTITY_H_
