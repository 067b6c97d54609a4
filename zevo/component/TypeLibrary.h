// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_TYPELIBRARY_H_
#define ZEVO_COMPONENT_TYPELIBRARY_H_

#include <oaidl.h>
#include <wrl/client.h>

namespace zevo::component {

/// The type library that the file carries. Throws `Error`.
Microsoft::WRL::ComPtr<ITypeLib> LoadTypeLibrary();

/// What the type library says of a class, or of an interface as script hosts see it. Throws `Error`.
Microsoft::WRL::ComPtr<ITypeInfo> TypeOf(const GUID& id);

/// An interface as its table of functions has it. Throws `Error`.
Microsoft::WRL::ComPtr<ITypeInfo> TableTypeOf(const IID& interfaceId);

/// Throws `Error` with the system's number when a call failed.
void RequireSuccess(HRESULT result);

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_TYPELIBRARY_H_
