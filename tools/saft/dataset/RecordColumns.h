// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_RECORDCOLUMNS_H_
#define ZEVO_TOOLS_SAFT_DATASET_RECORDCOLUMNS_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/dataset/RecordKind.h"

namespace zevo::saft {

/// A column of a list: an identifier of what the record belongs to, or a property.
struct RecordColumn {
  std::string name;          ///< as a dataset has it, such as "BillingAddress.City"
  const Property* property;  ///< null for an identifier, which is a plain text
};

/// What an element of the file is in a list.
struct ListedElement {
  enum Is { kCell, kRecord, kList };

  std::string_view name;      ///< of the element
  std::string_view property;  ///< that it is told as
  Is is;
  size_t column = 0;                         ///< of a cell
  std::vector<ListedElement> children = {};  ///< of a record, and of the items of a list
};

/// The columns of a kind of record, and the elements that they come from. Elements that are records of another kind
/// have no columns.
class RecordColumns {
 public:
  explicit RecordColumns(const RecordKind& kind);

  /// Identifiers first, then the properties in the order in which their elements stand in the file.
  const std::vector<RecordColumn>& Columns() const { return columns_; }
  /// The place of a column. Fails with the nearest name when there is none.
  size_t PlaceOf(std::string_view column) const;
  /// What is in the record's element.
  std::span<const ListedElement> Elements() const { return elements_; }

 private:
  std::vector<ListedElement> ElementsOf(const Record& record, const std::string& elementPath,
                                        const std::string& columnPath, bool cells);

  const RecordKind& kind_;
  std::vector<RecordColumn> columns_;
  std::vector<ListedElement> elements_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_RECORDCOLUMNS_H_
