// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/ErrorTranslation.h>

#include <oleauto.h>
#include <wrl/client.h>
#include <zevo/Error.h>
#include <zevo/platform/windows/WideText.h>

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

HRESULT ResultOf(int32_t number) {
  if (number < 0) return number;
  if (number == 0) return E_FAIL;
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number & 0xFFFF);
}

// Sets the thread's error object, from which the host takes source and description. Where that fails, the host has the
// number alone.
void PublishErrorInfo(const IID& interfaceId, const Error& error) {
  ComPtr<ICreateErrorInfo> creation;
  if (FAILED(CreateErrorInfo(&creation))) return;
  const std::string description(error.Description().empty() ? MessageText(error.Number()) : error.Description());
  creation->SetGUID(interfaceId);
  creation->SetSource(WideFromUtf8(error.Source()).data());
  creation->SetDescription(WideFromUtf8(description).data());
  ComPtr<IErrorInfo> info;
  if (SUCCEEDED(creation.As(&info))) SetErrorInfo(0, info.Get());
}

HRESULT Report(const IID& interfaceId, const Error& error) {
  PublishErrorInfo(interfaceId, error);
  return ResultOf(error.Number());
}

}  // namespace

HRESULT TranslateException(const IID& interfaceId) noexcept {
  try {
    SetErrorInfo(0, nullptr);
    try {
      throw;
    } catch (const Error& error) {
      return Report(interfaceId, error);
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    } catch (const std::length_error&) {
      return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
      return Report(interfaceId, MakeRunTimeError(RunTimeError::kInvalidCall, error.what()));
    } catch (...) {
      return E_UNEXPECTED;
    }
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

LONG ErrorNumber(HRESULT result) {
  return HRESULT_FACILITY(result) == FACILITY_CONTROL ? HRESULT_CODE(result) : result;
}

}  // namespace zevo::component
