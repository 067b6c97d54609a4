// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_ENTITYREADER_H_
#define ZEVO_TOOLS_SAFT_MERGE_ENTITYREADER_H_

#include <zevo/adapters.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tools/saft/input/ReadingProgress.h"

namespace zevo::saft {

/// How much of all files is read, over all passes.
class MergeProgress {
 public:
  /// `size` is how much there is to read, in bytes.
  explicit MergeProgress(uint64_t size) : size_(size), progress_(size, OutputWhile::kIntoFiles) {}

  void Add(uint64_t bytes) {
    read_ += bytes;
    progress_.Show(std::min(read_, size_));
  }
  /// Takes the bar away for good.
  void Clear() { progress_.Clear(); }

 private:
  uint64_t size_;
  uint64_t read_ = 0;
  ReadingProgress progress_;
};

/// Which of the records of a file, counted from 1, are of a kind, or transactions of a journal: those between the first
/// and the last, others among them.
struct RecordRange {
  size_t first = 0;  ///< 0 where there are none
  size_t last = 0;

  void Add(size_t record) {
    if (first == 0) first = record;
    last = record;
  }
};

/// Reads an audit file record by record, from the beginning again where that is asked for. A failure of the library is
/// a `Failure`; a signal that was noted throws `Interrupted`.
class EntityReader {
 public:
  /// The file, which messages call by this name too.
  EntityReader(std::string file, MergeProgress& progress) : file_(std::move(file)), progress_(progress) {}

  /// Reads the next record; false behind the last. The first call opens the file.
  bool Next();
  /// Goes through the records of a range: calls `visit()` with each. Reads on where the range is ahead, and from the
  /// beginning where it is not.
  template <class Visit>
  void ReadRange(const RecordRange& range, const Visit& visit) {
    if (range.first == 0) return;
    if (record_ >= range.first) scanner_ = nullptr;
    while (record_ < range.last || scanner_ == nullptr) {
      if (!Next()) return;
      if (record_ >= range.first) visit();
    }
  }

  /// The scanner, which stands at the record that was read.
  const AuditFileScanner& Scanner() const { return *scanner_; }
  EntityKind Kind() const { return *scanner_->Kind(); }
  /// The number of the record, from 1.
  size_t RecordNumber() const { return record_; }

 private:
  std::string file_;
  MergeProgress& progress_;
  std::unique_ptr<AuditFileScanner> scanner_;  // none before the first record
  std::shared_ptr<Record> last_;
  size_t record_ = 0;
  uint64_t read_ = 0;  // bytes of the file
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_ENTITYREADER_H_
