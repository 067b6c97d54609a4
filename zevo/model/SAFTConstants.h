// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SAFTCONSTANTS_H_
#define ZEVO_MODEL_SAFTCONSTANTS_H_

#include <zevo/Api.h>
#include <zevo/Error.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace zevo {

// Values overlap between enumerations on purpose. A property that was never assigned holds 0, which has no code.

/// Kinds of sales document.
enum InvoiceTypes : int32_t {
  itFT = 41,
  itND = 42,
  itNC = 43,
  itVD = 44,
  itTV = 45,
  itTD = 46,
  itAA = 47,
  itDA = 48,
  itRP = 49,
  itRE = 50,
  itCS = 51,
  itLD = 52,
  itRA = 53,
};

/// Kinds of product: P goods, S services, O other charges, I taxes and parafiscal charges.
enum ProductTypes : int32_t { ptP = 51, ptS = 52, ptO = 53, ptI = 54 };

/// Means of payment: NU cash, CH cheque, CC credit card, CD debit card, TB bank transfer, TR restaurant ticket.
enum PaymentMechanisms : int32_t { pmNU = 61, pmCH = 62, pmCC = 63, pmCD = 64, pmTB = 65, pmTR = 66 };

/// Kinds of ledger transaction: N normal, R year-end regularisation, A result, J adjustment.
enum TransactionTypes : int32_t { ttN = 71, ttR = 72, ttA = 73, ttJ = 74 };

/// State of a sales document: N normal, A cancelled, F invoiced, S self-billed.
enum InvoiceStatuses : int32_t { isN = 81, isA = 82, isF = 83, isS = 84 };

/// What the file covers: C accounting, F invoicing, I both, P partial invoicing, S self-billing.
enum TaxAccountingBasis : int32_t { tabC = 91, tabF = 92, tabI = 93, tabP = 94, tabS = 95 };

/// Error numbers that a reading host may want to tell apart.
enum SpecialReaderExceptions : int32_t {
  ReadingAborted = kErrorBase + static_cast<int32_t>(Message::kReadingAborted),
};

/// A value of an enumeration and the text that stands for it in the file.
struct Code {
  /// The number, such as `itFT`.
  int32_t value;
  /// The code, such as "FT".
  std::string_view text;
};

/// The codes of an enumeration, in the order of its values; specialised for every enumeration that the file holds.
template <class Enumeration>
std::span<const Code> CodesOf();
template <>
ZEVO_API std::span<const Code> CodesOf<InvoiceTypes>();
template <>
ZEVO_API std::span<const Code> CodesOf<ProductTypes>();
template <>
ZEVO_API std::span<const Code> CodesOf<PaymentMechanisms>();
template <>
ZEVO_API std::span<const Code> CodesOf<TransactionTypes>();
template <>
ZEVO_API std::span<const Code> CodesOf<InvoiceStatuses>();
template <>
ZEVO_API std::span<const Code> CodesOf<TaxAccountingBasis>();

/// Carries the enumerations for hosts that need a class to find them by; it has no members.
class ZEVO_API SAFTConstants {};

}  // namespace zevo

#endif  // ZEVO_MODEL_SAFTCONSTANTS_H_
