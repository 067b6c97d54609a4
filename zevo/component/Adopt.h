// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_ADOPT_H_
#define ZEVO_COMPONENT_ADOPT_H_

#include <wrl/client.h>

namespace zevo::component {

/// Takes over a reference that somebody else counted. ComPtr::Attach of MinGW-w64 counts it once more.
template <class T>
Microsoft::WRL::ComPtr<T> Adopt(T* reference) {
  Microsoft::WRL::ComPtr<T> pointer;
  *pointer.GetAddressOf() = reference;
  return pointer;
}

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_ADOPT_H_
