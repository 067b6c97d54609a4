// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_CONVERSIONS_H_
#define ZEVO_COMPONENT_CONVERSIONS_H_

#include <ZevoAdapters11.h>
#include <zevo/Error.h>
#include <zevo/model/Amount.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Finding.h>
#include <zevo/model/Language.h>
#include <zevo/model/Problem.h>
#include <zevo/model/SAFTConstants.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace zevo::component {

/// A new string of Automation, which the receiver frees. Throws std::bad_alloc.
BSTR NewBstr(std::string_view text);

/// UTF-8 of a string of Automation, whose null is the empty text.
std::string TextOf(BSTR text);

/// Copies a tagged value, or what it points to. `copy` must be initialised.
HRESULT CopyPlain(VARIANT& copy, const VARIANT& value);

/// How a value of the library travels in Automation: its type there, and the conversions both ways.
template <class Value>
struct Conversion;

template <>
struct Conversion<std::string> {
  using Type = BSTR;
  static BSTR To(std::string_view value) { return NewBstr(value); }
  static std::string From(BSTR value) { return TextOf(value); }
};

template <>
struct Conversion<std::string_view> : Conversion<std::string> {};

/// A text that may not be there: Null, which is no text, not even an empty one.
template <>
struct Conversion<std::optional<std::string_view>> {
  using Type = VARIANT;
  static VARIANT To(const std::optional<std::string_view>& value) {
    VARIANT result;
    V_VT(&result) = VT_NULL;
    if (!value) return result;
    V_BSTR(&result) = NewBstr(*value);
    V_VT(&result) = VT_BSTR;
    return result;
  }
};

/// The class of a record; an empty text for none.
template <>
struct Conversion<std::optional<EntityKind>> {
  using Type = BSTR;
  static BSTR To(std::optional<EntityKind> value) { return NewBstr(value ? NameOf(*value) : std::string_view()); }
};

template <>
struct Conversion<Amount> {
  using Type = CURRENCY;
  static CURRENCY To(Amount value) {
    CURRENCY result;
    result.int64 = value.Scaled();
    return result;
  }
  static Amount From(CURRENCY value) { return Amount::FromScaled(value.int64); }
};

template <>
struct Conversion<bool> {
  using Type = VARIANT_BOOL;
  static VARIANT_BOOL To(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
  static bool From(VARIANT_BOOL value) { return value != VARIANT_FALSE; }
};

/// Numbers, and the enumerations, which the type library has under the same names.
template <class Value, class ComType>
struct NumberConversion {
  using Type = ComType;
  static ComType To(Value value) { return static_cast<ComType>(value); }
  static Value From(ComType value) { return static_cast<Value>(value); }
};
template <>
struct Conversion<int32_t> : NumberConversion<int32_t, LONG> {};
template <>
struct Conversion<float> : NumberConversion<float, FLOAT> {};
template <>
struct Conversion<double> : NumberConversion<double, DOUBLE> {};
template <>
struct Conversion<zevo::CheckVerdict> : NumberConversion<zevo::CheckVerdict, ::Verdicts> {};
template <>
struct Conversion<zevo::Fault> : NumberConversion<zevo::Fault, ::Faults> {};
template <>
struct Conversion<zevo::InvoiceStatuses> : NumberConversion<zevo::InvoiceStatuses, ::InvoiceStatuses> {};
template <>
struct Conversion<zevo::InvoiceTypes> : NumberConversion<zevo::InvoiceTypes, ::InvoiceTypes> {};
template <>
struct Conversion<zevo::PaymentMechanisms> : NumberConversion<zevo::PaymentMechanisms, ::PaymentMechanisms> {};
template <>
struct Conversion<zevo::ProductTypes> : NumberConversion<zevo::ProductTypes, ::ProductTypes> {};
template <>
struct Conversion<zevo::TaxAccountingBasis> : NumberConversion<zevo::TaxAccountingBasis, ::TaxAccountingBasis> {};
template <>
struct Conversion<zevo::TransactionTypes> : NumberConversion<zevo::TransactionTypes, ::TransactionTypes> {};

/// Enumerations of which the library takes no other values: raises error 5 for a number that is none of them.
template <class Value, class ComType, Value kLast>
struct ExactConversion : NumberConversion<Value, ComType> {
  static Value From(ComType value) {
    const auto number = static_cast<LONG>(value);
    if (number < 0 || number > static_cast<LONG>(kLast)) {
      throw MakeRunTimeError(RunTimeError::kInvalidCall, std::to_string(number));
    }
    return static_cast<Value>(number);
  }
};
template <>
struct Conversion<zevo::Language> : ExactConversion<zevo::Language, ::Languages, zevo::Language::kEnglish> {};
template <>
struct Conversion<zevo::Severity> : ExactConversion<zevo::Severity, ::Severities, zevo::Severity::kError> {};

/// A number that may be too large for Automation: raises error 6.
template <>
struct Conversion<int64_t> {
  using Type = LONG;
  static LONG To(int64_t value) {
    if (!std::in_range<LONG>(value)) throw MakeRunTimeError(RunTimeError::kOverflow, std::to_string(value));
    return static_cast<LONG>(value);
  }
};

template <class Value>
using ConversionOf = Conversion<std::remove_cvref_t<Value>>;

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_CONVERSIONS_H_
