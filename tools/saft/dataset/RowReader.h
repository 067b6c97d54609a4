// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_ROWREADER_H_
#define ZEVO_TOOLS_SAFT_DATASET_ROWREADER_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/dataset/RecordKind.h"

namespace zevo::saft {

/// A record of a list, as the file has it. Valid while it is handed over.
struct Row {
  /// For each column the text, without white space at its ends; nothing where the file has no such element.
  std::span<const std::optional<std::string_view>> cells;
  /// The elements of the entity that it is, or is a part of, and which of them is the record's own.
  std::span<const ScannedElement> elements;
  size_t element;
};

/// Takes the records of one kind out of entities. Where an element stands there twice, the first one counts.
class RowReader {
 public:
  using Taker = std::function<void(const Row& row)>;

  RowReader(const RecordKind& kind, const RecordColumns& columns);

  /// Hands over the records in the entity at which the scanner stands, which must be one of the kind's.
  void Read(const AuditFileScanner& scanner, const Taker& take);

 private:
  void ReadInside(size_t element, std::string_view path, size_t parent, const Taker& take);
  void Take(size_t element, const Taker& take);
  void Fill(size_t element, std::span<const ListedElement> children);

  const RecordKind& kind_;
  const RecordColumns& columns_;
  std::span<const ScannedElement> elements_;
  std::vector<std::optional<std::string_view>> cells_;
};

/// Finds what elements are told as. Most stand in the order in which they are looked for.
class ListedElements {
 public:
  explicit ListedElements(std::span<const ListedElement> listed) : listed_(listed) {}

  /// That of an element's name; null when it has none.
  const ListedElement* Find(std::string_view name);

 private:
  std::span<const ListedElement> listed_;
  size_t expected_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_ROWREADER_H_
