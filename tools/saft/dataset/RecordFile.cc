// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RecordFile.h"

#include <algorithm>
#include <filesystem>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
RecordFile::RecordFile(const std::string& path, const Record& sample, const KeyColumns& keys, Alterations& alterations)
    : path_(path), alterations_(alterations) {
  RequireRegularFile(path);
  if (!std::filesystem::exists(path)) return;
  csv_.emplace(path);
  if (!csv_->Columns().empty()) Bind(sample, keys);
}

void RecordFile::Bind(const Record& sample, const KeyColumns& keys) {
  for (const std::string_view parent : keys.parents) parents_.push_back(PlaceOf(parent));
  if (!keys.key.empty()) key_ = PlaceOf(keys.key);
  for (size_t place = 0; place < csv_->Columns().size(); ++place) {
    if (std::ranges::find(parents_, place) != parents_.end()) continue;
    const std::string& name = csv_->Columns()[place];
    try {
      columns_.push_back({place, ColumnBinding(name, sample)});
    } catch (const BadValue& bad) {
      csv_->Fail("column " + Quoted(name) + ": " + bad.what());
    }
  }
  FindRivals();
  FindTranslated();
}

void RecordFile::FindTranslated() {
  const auto add = [this](size_t place, const Property* property) {
    const CellText text(csv_->Dialect(), property);
    if (text.MayDiffer()) translated_.push_back({place, text});
  };
  for (const size_t place : parents_) add(place, nullptr);
  for (const auto& [place, binding] : columns_) add(place, &binding.Target());
}

void RecordFile::FindRivals() {
  for (size_t second = 0; second < columns_.size(); ++second) {
    const WrittenForm& form = columns_[second].binding.Form();
    if (!form.yields) continue;
    const std::string& name = csv_->Columns()[columns_[second].place];
    const std::string rival = name.substr(0, name.rfind('.') + 1).append(form.partner);
    const auto first = std::ranges::find(
        columns_, rival, [&](const Column& column) -> const std::string& { return csv_->Columns()[column.place]; });
    if (first != columns_.end()) rivals_.push_back({static_cast<size_t>(first - columns_.begin()), second});
  }
}

size_t RecordFile::PlaceOf(std::string_view column) const {
  const auto& columns = csv_->Columns();
  const auto found = std::ranges::find(columns, column);
  if (found == columns.end()) csv_->Fail("column " + Quoted(column) + " is missing");
  return static_cast<size_t>(found - columns.begin());
}

bool RecordFile::Next() {
  while (csv_ && csv_->Next()) {
    Interruption::ThrowIfRequested();
    if (csv_->IsEmptyRow()) {
      alterations_.AddEmptyRow(*csv_);
      continue;
    }
    Translate();
    return true;
  }
  if (csv_) alterations_.AddForm(*csv_, has_day_first_);
  return false;
}

// From here on the row is as a dataset has it.
void RecordFile::Translate() {
  for (const auto& [place, text] : translated_) {
    try {
      std::optional<std::string> told = text.Of(csv_->Cell(place));
      if (!told) continue;
      csv_->Replace(place, *std::move(told));
      has_day_first_ = has_day_first_ || text.IsDate();
    } catch (const BadValue& bad) {
      csv_->Fail(place, bad.what());
    }
  }
}

void RecordFile::Fill(Record& record) {
  for (const Column& column : columns_) {
    const std::string_view text = ToldBy(column.binding.Target(), csv_->Cell(column.place));
    if (text.empty()) continue;
    if (IsCodeOfSchemaOnly(column.binding.Target(), text)) {
      alterations_.AddUnknownCode(*csv_, column.place);
      continue;
    }
    SetFrom(column, text, record);
    Note(column, text, record);
  }
  Decide(record);
}

void RecordFile::SetFrom(const Column& column, std::string_view text, Record& record) {
  try {
    column.binding.Set(record, text);
  } catch (const BadValue& bad) {
    csv_->Fail(column.place, bad.what());
  }
}

void RecordFile::Note(const Column& column, std::string_view text, const Record& record) {
  const auto& [place, binding] = column;
  if (const auto& constant = binding.Constant()) {
    if (text == *constant) return;
    if (IsBindingConstant(binding.Target())) csv_->Fail(place, "only " + *constant + " can be written");
    alterations_.AddConstant(*csv_, place, *constant);
  } else if (binding.IsText()) {
    if (const std::string kept = binding.Text(record); kept != text) alterations_.AddShortened(*csv_, place, kept);
    if (text.find('\r') != std::string_view::npos) alterations_.AddReturns(*csv_, place);
  } else if (binding.MayChange(text)) {
    const std::string written = binding.WrittenText(record);
    if (Decimal::FromText(text) != Decimal::FromText(written)) alterations_.AddRounded(*csv_, place, written);
  }
}

// Decides as the writer of the file does, so that totals are the sums of what it writes.
void RecordFile::Decide(Record& record) {
  const auto isZero = [&](const Column& column) {
    return Decimal::FromText(column.binding.Text(record)).value_or(0).IsZero();
  };
  for (const auto& [first, second] : rivals_) {
    if (csv_->Cell(columns_[first].place).empty() || csv_->Cell(columns_[second].place).empty()) continue;
    if (isZero(columns_[first]) || isZero(columns_[second])) continue;
    alterations_.AddLeftOut(*csv_, columns_[second].place, columns_[first].place);
    columns_[second].binding.Set(record, "0");
  }
}

std::string RecordFile::KeptKey(const Record& record) const {
  const auto column = std::ranges::find(columns_, *key_, &Column::place);
  return column->binding.IsText() && !Key().empty() ? column->binding.Text(record) : Key();
}

}  // namespace zevo::saft
