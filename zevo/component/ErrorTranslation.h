// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_ERRORTRANSLATION_H_
#define ZEVO_COMPONENT_ERRORTRANSLATION_H_

#include <windows.h>

#include <utility>

namespace zevo::component {

/// Turns the exception that is being handled into the result of an interface's method, and publishes source and
/// description to the host as `IErrorInfo`. Run-time errors have the facility that script hosts expect: the
/// host's own number of the error is the library's.
HRESULT TranslateException(const IID& interfaceId) noexcept;

/// The number of the error behind a failed result: the reverse of the above.
LONG ErrorNumber(HRESULT result);

/// Runs what a method does. No exception leaves it.
template <class Operation>
HRESULT Guarded(const IID& interfaceId, Operation&& operation) noexcept {
  try {
    std::forward<Operation>(operation)();
    return S_OK;
  } catch (...) {
    return TranslateException(interfaceId);
  }
}

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_ERRORTRANSLATION_H_
