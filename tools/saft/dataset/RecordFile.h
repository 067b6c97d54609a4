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
#include "tools/saft/dataset/Alterations.h"
#include "tools/saft/dataset/CellText.h"
#include "tools/saft/dataset/ColumnBinding.h"

namespace zevo::saft {

/// Which columns of a file are more than properties.
struct KeyColumns {
  /// The property that tells the records of the file, or of their parent, apart; empty when nothing does.
  std::string_view key;
  /// What finds the record that a row belongs to. These are no properties of the row's own record.
  std::vector<std::string_view> parents = {};
};

/// A file of a dataset whose rows are records of one class. A file that does not exist has no rows.
class RecordFile {
 public:
  /// `sample` is any record of the class.
  RecordFile(const std::string& path, const Record& sample, const KeyColumns& keys, Alterations& alterations);

  bool Exists() const { return csv_.has_value(); }
  /// Goes to the next row that has a value; false when there is none left.
  bool Next();
  int64_t Row() const { return csv_->Row(); }
  const std::string& Path() const { return path_; }

  /// Sets the properties that the row has a value for.
  void Fill(Record& record);

  // What becomes of the row otherwise than it says.

  /// Its key is that of another record of the same parent.
  void NoteRepeatedKey() { alterations_.AddRepeatedKey(*csv_, *key_); }
  /// It has no value for a property whose element is written all the same.
  void NoteAbsent(std::string_view column) { alterations_.AddAbsent(*csv_, column); }
  /// Its record is left out: that which the last parent column names has one already.
  void NoteSecond() { alterations_.AddSecond(*csv_, parents_.back()); }
  /// Several records are what the last parent column names: one of them is taken.
  void NoteGuess() { alterations_.AddGuess(*csv_, parents_.back()); }

  /// The cell of a parent column, by its place among them.
  const std::string& Parent(size_t place) const { return csv_->Cell(parents_[place]); }
  /// The key as the row has it.
  const std::string& Key() const { return csv_->Cell(*key_); }
  /// The key as a record keeps it, which may be shorter.
  std::string KeptKey(const Record& record) const;

  [[noreturn]] void Fail(std::string_view reason) const { csv_->Fail(reason); }
  [[noreturn]] void FailAtKey(std::string_view reason) const { csv_->Fail(*key_, reason); }
  [[noreturn]] void FailAtParent(size_t place, std::string_view reason) const { csv_->Fail(parents_[place], reason); }

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

  void Bind(const Record& sample, const KeyColumns& keys);
  size_t PlaceOf(std::string_view column) const;
  void FindRivals();
  void FindTranslated();
  void Translate();
  void SetFrom(const Column& column, std::string_view text, Record& record);
  void Note(const Column& column, std::string_view text, const Record& record);
  void Decide(Record& record);

  std::string path_;
  std::optional<CsvFile> csv_;
  Alterations& alterations_;
  std::vector<Column> columns_;
  std::vector<Rivals> rivals_;
  std::vector<Translated> translated_;
  bool has_day_first_ = false;
  std::vector<size_t> parents_;
  std::optional<size_t> key_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_RECORDFILE_H_
