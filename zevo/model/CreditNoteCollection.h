// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_CREDITNOTECOLLECTION_H_
#define ZEVO_MODEL_CREDITNOTECOLLECTION_H_

#include <zevo/model/CreditNote.h>
#include <zevo/model/RecordCollection.h>

#include <string>
#include <string_view>

namespace zevo {

/// The corrected invoices of a line, found by position or by `Reference`.
class CreditNoteCollection : public RecordCollection<CreditNoteCollection, CreditNote> {
 public:
  /// The property that gives the key.
  static constexpr std::string_view kKey = "Reference";
  /// The key under which an item is added.
  static std::string KeyOf(const CreditNote& value) { return value.Reference(); }
};

}  // namespace zevo

#endif  // ZEVO_MODEL_CREDITNOTECOLLECTION_H_
