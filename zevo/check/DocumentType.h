// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_DOCUMENTTYPE_H_
#define ZEVO_CHECK_DOCUMENTTYPE_H_

#include <zevo/check/CalendarDate.h>

#include <optional>
#include <span>
#include <string_view>

namespace zevo {

/// What is known of an InvoiceType of the schema.
struct DocumentType {
  std::string_view code;
  /// The days from and until which there are such documents.
  std::optional<CalendarDate> first = {};
  std::optional<CalendarDate> last = {};
  /// Whether it lowers what the customer owes, as a credit note does.
  bool is_debit = false;
  /// Whether an invoice of several may take its place (status F).
  bool may_be_summarised = false;

  static std::span<const DocumentType> All();
  /// Null for a code that is none of the schema's.
  static const DocumentType* Find(std::string_view code);
};

}  // namespace zevo

#endif  // ZEVO_CHECK_DOCUMENTTYPE_H_
