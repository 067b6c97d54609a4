// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_RECORDFILE_H_
#define ZEVO_TOOLS_SAFT_DATASET_RECORDFILE_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/csv/CsvFile.h"
#include "tools/saft/dataset/CellText.h"
#include "tools/saft/dataset/ColumnBinding.h"
#include "tools/saft/dataset/DatasetNotes.h"
#include "tools/saft/dataset/RecordKind.h"

namespace zevo::saft {

/// A file of a dataset whose rows are records of one kind. A file that does not exist has no rows. What is wrong with
/// it goes to the errors of the dataset, and what the audit file will have otherwise to its alterations: a row without
/// a fault is read as it is, a cell with one as if it were empty.
class RecordFile {
 public:
  /// What is told of a file, which may be read several times.
  enum class Reading {
    kFirst,        ///< everything
    kFaults,       ///< its errors and the rows without a value
    kAlterations,  ///< what of its other rows the audit file will have otherwise
    kAgain,        ///< nothing
  };

  /// `number` is that of the file in the dataset.
  RecordFile(const std::string& path, size_t number, const RecordKind& kind, DatasetNotes& notes, Reading reading);

  bool Exists() const { return exists_; }
  /// Goes to the next row that has a value; false when there is none left.
  bool Next();
  /// Goes to a row that was read before.
  void GoTo(uint64_t offset, uint32_t row);
  /// The line on which the row begins, from 1.
  uint32_t Row() const { return static_cast<uint32_t>(csv_->Row()); }
  uint64_t Offset() const { return csv_->Offset(); }
  const std::string& Path() const { return path_; }
  /// The number of the file in the dataset.
  size_t Number() const { return number_; }

  /// Sets the properties that the row has a value for.
  void Fill(Record& record);

  // What becomes of the row otherwise than it says.

  /// Its key is that of another record of the same parent.
  void NoteRepeatedKey() { alterations_.AddRepeatedKey(Here(), *key_); }
  /// It has no value for a property whose element is written all the same.
  void NoteAbsent(std::string_view column) { alterations_.AddAbsent(Here(), column); }
  /// Its record is left out: that which the last parent column names has one already.
  void NoteSecond() { alterations_.AddSecond(Here(), *parents_.back()); }
  /// Several records are what the last parent column names: one of them is taken.
  void NoteGuess() { alterations_.AddGuess(Here(), *parents_.back()); }

  /// Whether the row has a key, and whether it has those of all parents. What is wrong where it has not is told.
  bool HasKey() const { return key_.has_value() && has_keys_; }
  bool HasParents() const;
  /// The cell of a parent column, by its place among them.
  const std::string& Parent(size_t place) const { return csv_->Cell(*parents_[place]); }
  /// The key as the row has it.
  const std::string& Key() const { return csv_->Cell(*key_); }
  /// The key as a record keeps it, which may be shorter.
  std::string KeptKey(const Record& record) const;

  // What is wrong with the row.

  void AddError(std::string_view reason) { errors_.Add(number_, csv_->Fault(reason)); }
  void AddErrorAtKey(std::string_view reason) { errors_.Add(number_, csv_->Fault(*key_, reason)); }
  void AddErrorAtParent(size_t place, std::string_view reason) {
    errors_.Add(number_, csv_->Fault(*parents_[place], reason));
  }

 private:
  struct Column {
    size_t place;
    ColumnBinding binding;
  };

  /// A column whose cells may tell something else than they say.
  struct Translated {
    size_t place;
    CellText text;
  };

  /// Two columns of which the file holds only one: the first, unless it is 0.
  struct Rivals {
    size_t first;
    size_t second;
  };

  bool HasHeading(const RecordKind& kind) const;
  void Bind(const RecordKind& kind);
  void BindColumn(size_t place, const RecordKind& kind, const Record& sample);
  void AddUnknownColumn(const std::string& name, const RecordKind& kind);
  void AddColumnError(std::string_view column, std::string_view reason);
  void FindRequired(const RecordKind& kind);
  std::optional<size_t> PlaceOf(std::string_view column);
  void FindRivals();
  void FindTranslated();
  void Translate();
  void Take(const Column& column, Record& record);
  void Note(const Column& column, std::string_view text, const Record& record);
  void Decide(Record& record);
  void AddLost(const CsvFault& fault);
  void CountBytes();
  bool TellsFaults() const { return reading_ == Reading::kFirst || reading_ == Reading::kFaults; }
  bool TellsAlterations() const { return reading_ == Reading::kFirst || reading_ == Reading::kAlterations; }
  RowIn Here() const { return {number_, *csv_}; }

  std::string path_;
  size_t number_;
  DatasetNotes& notes_;
  Alterations& alterations_;
  Errors& errors_;
  Reading reading_;
  bool exists_ = false;
  std::optional<CsvFile> csv_;
  uint64_t bytes_counted_ = 0;
  std::vector<Column> columns_;
  size_t unknown_columns_ = 0;
  std::vector<Rivals> rivals_;
  std::vector<Translated> translated_;
  bool has_day_first_ = false;
  bool has_keys_ = true;  // whether those of the row could be read
  std::vector<std::optional<size_t>> parents_;
  std::optional<size_t> key_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_RECORDFILE_H_
