// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RecordFile.h"

#include <zevo/TextHash.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <memory>
#include <span>
#include <string_view>
#include <unordered_set>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CsvWords.h"
#include "tools/saft/words/DatasetWords.h"

namespace zevo::saft {
namespace {

// Unknown columns for which the name is looked for that may be meant: many more than are told, few enough to take no
// time.
constexpr size_t kMostGuessed = 1'000;

}  // namespace

RecordFile::RecordFile(const std::string& path, size_t number, const RecordKind& kind, DatasetNotes& notes,
                       Reading reading)
    : path_(path),
      number_(number),
      notes_(notes),
      alterations_(notes.altered),
      errors_(notes.errors),
      reading_(reading) {
  RequireRegularFile(path);
  exists_ = std::filesystem::exists(path);
  if (!exists_) return;
  try {
    csv_.emplace(path);
  } catch (const CsvFault& fault) {
    AddLost(fault);
    return;
  }
  if (csv_->Columns().empty()) return;
  if (HasHeading(kind)) {
    Bind(kind);
    return;
  }
  AddLost(csv_->Fault(Say(words::kNoHeading, RecordColumns(kind).Columns().front().name, kind.file)));
  csv_.reset();
}

// Whether the first row names columns, and is not a title or a row of values.
bool RecordFile::HasHeading(const RecordKind& kind) const {
  const RecordColumns known(kind);
  const auto isKnown = [&](const std::string& name) {
    return std::ranges::find(known.Columns(), name, &RecordColumn::name) != known.Columns().end();
  };
  const auto isNear = [&](const std::string& name) {
    return !DidYouMean(name, known.Columns(), &RecordColumn::name).empty();
  };
  const auto& names = csv_->Columns();
  if (std::ranges::any_of(names, isKnown)) return true;
  const auto guessed = std::span(names).first(std::min(names.size(), kMostGuessed));
  return 2 * static_cast<size_t>(std::ranges::count_if(guessed, isNear)) >= guessed.size();
}

void RecordFile::Bind(const RecordKind& kind) {
  const auto& columns = csv_->Columns();
  for (size_t i = 0; i < kind.Parents(); ++i) parents_.push_back(PlaceOf(kind.parents[i]));
  if (!kind.key.empty()) key_ = PlaceOf(kind.key);
  const std::shared_ptr<Record> sample = kind.make();
  std::unordered_set<std::string_view, TextHash> names;
  for (size_t place = 0; place < columns.size(); ++place) {
    const bool is_first = names.insert(columns[place]).second;
    if (std::ranges::find(parents_, place) != parents_.end()) continue;
    if (!is_first) {
      AddColumnError(columns[place], Say(words::kColumnTwice, Quoted(columns[place])));
    } else {
      BindColumn(place, kind, *sample);
    }
  }
  FindRequired(kind);
  FindRivals();
  FindTranslated();
}

void RecordFile::FindTranslated() {
  const auto add = [this](size_t place, const Property* property) {
    const CellText text(csv_->Dialect(), property);
    if (text.MayDiffer()) translated_.push_back({place, text});
  };
  for (const std::optional<size_t>& place : parents_) {
    if (place) add(*place, nullptr);
  }
  for (const auto& [place, binding] : columns_) add(place, &binding.Target());
}

void RecordFile::BindColumn(size_t place, const RecordKind& kind, const Record& sample) {
  const std::string& name = csv_->Columns()[place];
  try {
    columns_.push_back({place, ColumnBinding(name, sample)});
  } catch (const BadValue& bad) {
    AddColumnError(name, bad.what());
  } catch (const UnknownColumn&) {
    AddUnknownColumn(name, kind);
  }
}

void RecordFile::AddUnknownColumn(const std::string& name, const RecordKind& kind) {
  const std::string unknown = Say(words::kUnknownColumn, Quoted(name));
  if (++unknown_columns_ > kMostGuessed) return AddColumnError(name, unknown);
  const RecordColumns known(kind);
  const std::string_view nearest = NearestName(name, known.Columns(), &RecordColumn::name);
  const std::string meant = DidYouMean(name, known.Columns(), &RecordColumn::name);
  const bool is_meant = !meant.empty() && !PlaceOf(nearest);
  AddColumnError(is_meant ? nearest : name, unknown + meant);
}

// What else there is to say of the column would only follow from this.
void RecordFile::AddColumnError(std::string_view column, std::string_view reason) {
  if (!TellsFaults()) return;
  errors_.Add(number_, csv_->Fault(reason));
  errors_.SetToldInAllRows(number_, column);
}

// A column that another one was meant to be is not missing.
void RecordFile::FindRequired(const RecordKind& kind) {
  const auto require = [&](std::string_view column, const std::optional<size_t>& place) {
    if (place || column.empty()) return;
    if (!errors_.IsTold({number_, 0}, column)) AddColumnError(column, Say(words::kColumnMissing, Quoted(column)));
    errors_.SetIncomplete(number_);
  };
  for (size_t i = 0; i < kind.Parents(); ++i) require(kind.parents[i], parents_[i]);
  require(kind.key, key_);
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

std::optional<size_t> RecordFile::PlaceOf(std::string_view column) {
  const auto& columns = csv_->Columns();
  const auto found = std::ranges::find(columns, column);
  return found == columns.end() ? std::nullopt : std::optional(static_cast<size_t>(found - columns.begin()));
}

bool RecordFile::HasParents() const {
  return csv_ && has_keys_ && std::ranges::none_of(parents_, [](const std::optional<size_t>& place) { return !place; });
}

bool RecordFile::Next() {
  while (csv_) {
    Interruption::ThrowIfRequested();
    try {
      if (!csv_->Next()) break;
    } catch (const CsvFault& fault) {
      AddLost(fault);
      continue;
    }
    CountBytes();
    if (csv_->Row() > std::numeric_limits<uint32_t>::max()) throw Failure(path_, Say(words::kTooManyLines));
    if (!csv_->IsEmptyRow()) {
      Translate();
      return true;
    }
    if (TellsFaults()) alterations_.AddEmptyRow(Here());
  }
  if (csv_ && TellsFaults()) alterations_.AddForm(*csv_, has_day_first_);
  return false;
}

void RecordFile::GoTo(uint64_t offset, uint32_t row) {
  csv_->GoTo(offset, row);
  CountBytes();
  Translate();
}

// From here on the row is as a dataset has it.
void RecordFile::Translate() {
  has_keys_ = true;
  for (const auto& [place, text] : translated_) {
    try {
      std::optional<std::string> told = text.Of(csv_->Cell(place));
      if (!told) continue;
      csv_->Replace(place, *std::move(told));
      has_day_first_ = has_day_first_ || text.IsDate();
    } catch (const BadValue& bad) {
      if (TellsFaults()) errors_.Add(number_, csv_->Fault(place, bad.what()));
      csv_->Replace(place, {});
      if (place != key_ && std::ranges::find(parents_, place) == parents_.end()) continue;
      has_keys_ = false;
      errors_.SetIncomplete(number_);
    }
  }
}

void RecordFile::CountBytes() {
  notes_.bytes_read += csv_->BytesRead() - bytes_counted_;
  bytes_counted_ = csv_->BytesRead();
  if (notes_.progress) notes_.progress(notes_.bytes_read);
}

void RecordFile::AddLost(const CsvFault& fault) {
  if (TellsFaults()) errors_.Add(number_, fault);
  errors_.SetIncomplete(number_);
}

void RecordFile::Fill(Record& record) {
  for (const Column& column : columns_) Take(column, record);
  Decide(record);
}

void RecordFile::Take(const Column& column, Record& record) {
  const auto& [place, binding] = column;
  try {
    const std::string_view text = ToldBy(binding.Target(), csv_->Cell(place));
    if (text.empty()) return;
    if (IsCodeOfSchemaOnly(binding.Target(), text)) {
      if (TellsAlterations()) alterations_.AddUnknownCode(Here(), place);
      return;
    }
    if (binding.IsText() && !IsXmlText(text)) throw BadValue(Say(words::kNotXml));
    binding.Set(record, text);
    Note(column, text, record);
  } catch (const BadValue& bad) {
    if (TellsFaults()) errors_.Add(number_, csv_->Fault(place, bad.what()));
  } catch (const CsvFault& fault) {
    if (TellsFaults()) errors_.Add(number_, fault);
  }
}

void RecordFile::Note(const Column& column, std::string_view text, const Record& record) {
  const auto& [place, binding] = column;
  const auto& constant = binding.Constant();
  if (constant && text != *constant && IsBindingConstant(binding.Target())) {
    throw BadValue(Say(words::kOnlyConstant, *constant));
  }
  if (!TellsAlterations()) return;
  if (constant) {
    if (text != *constant) alterations_.AddConstant(Here(), place, *constant);
  } else if (binding.IsText()) {
    if (const std::string kept = binding.Text(record); kept != text) alterations_.AddShortened(Here(), place, kept);
    if (text.find('\r') != std::string_view::npos) alterations_.AddReturns(Here(), place);
  } else if (binding.MayChange(text)) {
    const std::string written = binding.WrittenText(record);
    if (Decimal::FromText(text) != Decimal::FromText(written)) alterations_.AddRounded(Here(), place, written);
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
    if (TellsAlterations()) alterations_.AddLeftOut(Here(), columns_[second].place, columns_[first].place);
    columns_[second].binding.Set(record, "0");
  }
}

std::string RecordFile::KeptKey(const Record& record) const {
  const auto column = std::ranges::find(columns_, *key_, &Column::place);
  return column->binding.IsText() && !Key().empty() ? column->binding.Text(record) : Key();
}

}  // namespace zevo::saft
