// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INVOICELINECOLLECTION_H_
#define ZEVO_MODEL_INVOICELINECOLLECTION_H_

#include <zevo/model/InvoiceLine.h>
#include <zevo/model/RecordCollection.h>

#include <string>
#include <string_view>

namespace zevo {

/// The lines of an invoice, found by position or by the text of `LineNumber`.
class InvoiceLineCollection : public RecordCollection<InvoiceLineCollection, InvoiceLine> {
 public:
  /// The property that gives the key.
  static constexpr std::string_view kKey = "LineNumber";
  /// The key under which an item is added.
  static std::string KeyOf(const InvoiceLine& value) { return std::to_string(value.LineNumber()); }
};

}  // namespace zevo

#endif  // ZEVO_MODEL_INVOICELINECOLLECTION_H_
