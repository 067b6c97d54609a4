// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_RECORDTABLE_H_
#define ZEVO_TOOLS_SAFT_DATASET_RECORDTABLE_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tools/saft/dataset/KeyIndex.h"
#include "tools/saft/dataset/RecordFile.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {

/// The records of a file that the rows of another one belong to.
template <class T>
class RecordTable {
 public:
  struct Row {
    std::unique_ptr<T> record;
    int64_t row;
  };

  explicit RecordTable(const RecordFile& file) : path_(file.Path()) {}

  /// Appends the record of the file's row. Fails when its key is there already.
  void Take(RecordFile& file) {
    auto record = std::make_unique<T>();
    file.Fill(*record);
    index_.Add(file, *record);
    rows_.push_back({std::move(record), file.Row()});
  }

  /// The place of the record that a row of another file names in a parent column. Fails when there is none.
  size_t PlaceOfParent(const RecordFile& child, size_t parent = 0) const {
    const auto place = index_.Find(child.Parent(parent));
    if (!place) child.FailAtParent(parent, "not in " + std::filesystem::path{path_}.filename().string());
    return *place;
  }
  T& ParentOf(const RecordFile& child, size_t parent = 0) const { return *rows_[PlaceOfParent(child, parent)].record; }

  /// The sum of the records, each of which `add` adds. A sum out of range is a failure at the record's row.
  template <class Add>
  Totals SumOf(Add&& add) const {
    Totals sum;
    for (const auto& [record, row] : rows_) {
      try {
        add(sum, *record);
      } catch (const Error& error) {
        throw Failure(path_, row, error.Description());
      }
    }
    return sum;
  }

  /// In the order of the file.
  std::vector<Row>& Rows() { return rows_; }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  KeyIndex index_;
  std::vector<Row> rows_;
};

/// Adds a row's record to a collection of its parent. When the parent has another one with that key, notes it and is
/// false: the record is there all the same.
template <class Collection, class T>
bool AddToParent(Collection& collection, std::shared_ptr<T> record, RecordFile& file) {
  const bool is_free = collection.Append(std::move(record));
  if (!is_free) file.NoteRepeatedKey();
  return is_free;
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_RECORDTABLE_H_
