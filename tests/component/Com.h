// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_COMPONENT_COM_H_
#define ZEVO_TESTS_COMPONENT_COM_H_

// What hosts do, in the few words of tests.

#include <ZevoAdapters11.h>
#include <gtest/gtest.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::testing {

using Microsoft::WRL::ComPtr;

/// A string of Automation and its end.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }

  // NOLINTNEXTLINE(google-explicit-constructor)
  operator BSTR() const { return text_; }
  BSTR* Receive() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  std::wstring Text() const { return text_ == nullptr ? std::wstring() : std::wstring(text_, SysStringLen(text_)); }

 private:
  BSTR text_ = nullptr;
};

/// A tagged value and its end.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  explicit Variant(std::wstring_view text) : Variant() {
    V_VT(&value_) = VT_BSTR;
    V_BSTR(&value_) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  explicit Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
  explicit Variant(long number) : Variant() {
    V_VT(&value_) = VT_I4;
    V_I4(&value_) = number;
  }
  explicit Variant(int number) : Variant(static_cast<long>(number)) {}
  explicit Variant(double number) : Variant() {
    V_VT(&value_) = VT_R8;
    V_R8(&value_) = number;
  }
  explicit Variant(bool flag) : Variant() {
    V_VT(&value_) = VT_BOOL;
    V_BOOL(&value_) = flag ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Variant(IDispatch* object) : Variant() {
    V_VT(&value_) = VT_DISPATCH;
    V_DISPATCH(&value_) = object;
    if (object != nullptr) object->AddRef();
  }
  Variant(const Variant& other) : Variant() { VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)); }
  Variant& operator=(const Variant& other) {
    VariantCopy(&value_, const_cast<VARIANT*>(&other.value_));
    return *this;
  }
  ~Variant() { VariantClear(&value_); }

  /// A variable passed by reference, as script hosts do. The variable must outlive it.
  static Variant Reference(Variant& variable) {
    Variant result;
    V_VT(&result.value_) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&result.value_) = &variable.value_;
    return result;
  }

  VARIANT& operator*() { return value_; }
  const VARIANT& operator*() const { return value_; }
  VARIANT* operator->() { return &value_; }
  VARTYPE Type() const { return V_VT(&value_); }
  long Number() const { return V_I4(&value_); }
  bool Flag() const { return V_BOOL(&value_) != VARIANT_FALSE; }
  std::wstring Text() const { return std::wstring(V_BSTR(&value_), SysStringLen(V_BSTR(&value_))); }
  IDispatch* Object() const { return V_DISPATCH(&value_); }

 private:
  VARIANT value_;
};

/// What a late-bound call came to.
struct Outcome {
  HRESULT result = S_OK;
  Variant value;
  UINT wrong_argument = 99;
  // Of an exception:
  HRESULT number = S_OK;
  std::wstring source;
  std::wstring description;
};

inline DISPID IdOf(IDispatch* object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  auto* text = const_cast<LPOLESTR>(name);
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id), S_OK)
      << std::string(name, name + wcslen(name));
  return id;
}

/// Calls a member by its number, with arguments in their written order.
inline Outcome Invoke(IDispatch* object, DISPID member, WORD flags, std::vector<Variant> arguments = {}) {
  std::vector<VARIANT> reversed;
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) reversed.push_back(**argument);
  DISPID assigned = DISPID_PROPERTYPUT;
  const bool assignment = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{reversed.data(), assignment ? &assigned : nullptr, static_cast<UINT>(reversed.size()),
                        assignment ? 1U : 0U};
  Outcome outcome;
  EXCEPINFO exception{};
  outcome.result = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &*outcome.value,
                                  &exception, &outcome.wrong_argument);
  outcome.number = exception.scode;
  if (exception.bstrSource != nullptr) outcome.source = exception.bstrSource;
  if (exception.bstrDescription != nullptr) outcome.description = exception.bstrDescription;
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  return outcome;
}

inline Outcome Call(IDispatch* object, const wchar_t* name, std::vector<Variant> arguments = {}) {
  return Invoke(object, IdOf(object, name), DISPATCH_METHOD, std::move(arguments));
}
inline Outcome Get(IDispatch* object, const wchar_t* name) {
  return Invoke(object, IdOf(object, name), DISPATCH_PROPERTYGET);
}
inline Outcome Put(IDispatch* object, const wchar_t* name, const Variant& value) {
  return Invoke(object, IdOf(object, name), DISPATCH_PROPERTYPUT, {value});
}
inline Outcome PutReference(IDispatch* object, const wchar_t* name, IDispatch* value) {
  return Invoke(object, IdOf(object, name), DISPATCH_PROPERTYPUTREF, {Variant(value)});
}

/// The description that was laid ready with a failed result of a member called early bound.
struct ErrorInfo {
  std::wstring source;
  std::wstring description;
};
inline ErrorInfo TakeErrorInfo() {
  ComPtr<IErrorInfo> info;
  ErrorInfo result;
  if (GetErrorInfo(0, &info) != S_OK) return result;
  Bstr source;
  Bstr description;
  info->GetSource(source.Receive());
  info->GetDescription(description.Receive());
  return {source.Text(), description.Text()};
}

/// Whether two pointers lead to the same object.
inline bool SameObject(IUnknown* one, IUnknown* other) {
  if (one == nullptr || other == nullptr) return one == other;
  ComPtr<IUnknown> first;
  ComPtr<IUnknown> second;
  one->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(first.GetAddressOf()));
  other->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(second.GetAddressOf()));
  return first.Get() == second.Get();
}

/// Counts the references of an object.
inline ULONG References(IUnknown* object) {
  object->AddRef();
  return object->Release();
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_COMPONENT_COM_H_
