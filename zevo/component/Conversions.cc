// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Conversions.h>

#include <zevo/platform/windows/WideText.h>

#include <new>

namespace zevo::component {

BSTR NewBstr(std::string_view text) {
  const std::wstring wide = WideFromUtf8(text);
  BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (result == nullptr) throw std::bad_alloc();
  return result;
}

std::string TextOf(BSTR text) {
  return text == nullptr ? std::string() : Utf8FromWide(std::wstring_view(text, SysStringLen(text)));
}

// The system only reads the value, without saying so.
HRESULT CopyPlain(VARIANT& copy, const VARIANT& value) { return VariantCopyInd(&copy, const_cast<VARIANT*>(&value)); }

}  // namespace zevo::component
