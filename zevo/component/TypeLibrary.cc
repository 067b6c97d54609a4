// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/TypeLibrary.h>

#include <oleauto.h>
#include <zevo/Error.h>
#include <zevo/component/ErrorTranslation.h>
#include <zevo/platform/windows/LibraryFile.h>

#include <string>

namespace zevo::component {

using Microsoft::WRL::ComPtr;

void RequireSuccess(HRESULT result) {
  if (FAILED(result)) throw Error(ErrorNumber(result), std::string(kRunTimeSource));
}

ComPtr<ITypeLib> LoadTypeLibrary() {
  ComPtr<ITypeLib> library;
  RequireSuccess(LoadTypeLibEx(LibraryFile().c_str(), REGKIND_NONE, &library));
  return library;
}

ComPtr<ITypeInfo> TypeOf(const GUID& id) {
  ComPtr<ITypeInfo> type;
  RequireSuccess(LoadTypeLibrary()->GetTypeInfoOfGuid(id, &type));
  return type;
}

ComPtr<ITypeInfo> TableTypeOf(const IID& interfaceId) {
  const ComPtr<ITypeInfo> type = TypeOf(interfaceId);
  // A dual interface is described as a dispatch interface and as a table of functions; -1 leads to the latter.
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> table;
  RequireSuccess(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  RequireSuccess(type->GetRefTypeInfo(reference, &table));
  return table;
}

}  // namespace zevo::component
