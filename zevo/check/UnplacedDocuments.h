// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_UNPLACEDDOCUMENTS_H_
#define ZEVO_CHECK_UNPLACEDDOCUMENTS_H_

#include <zevo/check/DocumentTable.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace zevo {

/// The invoices of a file whose numbers tell no place in a series of their own: those that repeat one, and those that
/// have none. Where they belong is told by when they were entered, so it does not depend on the order of the file.
class UnplacedDocuments {
 public:
  /// At the end of the file. The documents must outlive it.
  explicit UnplacedDocuments(const DocumentTable& documents);

  /// Whether others have the number of a document.
  bool IsRepeated(uint32_t document) const { return !CopiesOf(document).empty(); }
  /// How many may be meant to stand between two documents of a series: entered between them, or nobody knows when; of
  /// those with a number of the two, all but one.
  size_t Between(uint32_t lower, uint32_t higher) const;

 private:
  using Copy = DocumentTable::Copy;
  // A series, and when a document was entered.
  using Entry = std::pair<uint32_t, uint64_t>;

  std::span<const Copy> CopiesOf(uint32_t document) const;

  const DocumentTable& documents_;
  std::vector<Copy> copies_;          // by document and entry, that of the table among them
  std::vector<Entry> entries_;        // of the copies, sorted
  std::vector<uint64_t> unnumbered_;  // when they were entered, sorted
};

}  // namespace zevo

#endif  // ZEVO_CHECK_UNPLACEDDOCUMENTS_H_
