// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_LINECOLLECTION_H_
#define ZEVO_MODEL_LINECOLLECTION_H_

#include <zevo/model/RecordCollection.h>
#include <zevo/model/TransactionLine.h>

#include <string>
#include <string_view>

namespace zevo {

/// The lines of a transaction, found by position or by `RecordID`.
class LineCollection : public RecordCollection<LineCollection, TransactionLine> {
 public:
  /// The property that gives the key.
  static constexpr std::string_view kKey = "RecordID";
  /// The key under which an item is added.
  static std::string KeyOf(const TransactionLine& value) { return value.RecordID(); }
};

}  // namespace zevo

#endif  // ZEVO_MODEL_LINECOLLECTION_H_
