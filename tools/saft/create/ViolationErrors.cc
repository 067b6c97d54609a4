// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/ViolationErrors.h"

#include <algorithm>
#include <charconv>
#include <span>

#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CreateWords.h"
#include "tools/saft/words/CsvWords.h"
#include "tools/saft/words/DatasetWords.h"
#include "tools/saft/words/Meanings.h"

namespace zevo::saft {
namespace {

// The number of a key that is there twice, and of one that is not there.
constexpr int32_t kIdentity = 1877;

std::string_view TakeStep(std::string_view& path) {
  const std::string_view step = path.substr(0, path.find('/'));
  path.remove_prefix(std::min(step.size() + 1, path.size()));
  return step;
}

std::string_view NameIn(std::string_view step) { return step.substr(0, step.find('[')); }

// The number in a step such as "Line[2]", from 0.
size_t PlaceIn(std::string_view step) {
  size_t number = 1;
  if (const size_t bracket = step.find('['); bracket != std::string_view::npos) {
    std::from_chars(step.data() + bracket + 1, step.data() + step.size(), number);
  }
  return number - 1;
}

std::string_view LastStep(std::string_view path) { return NameIn(path.substr(path.rfind('/') + 1)); }

// Whether an element is not there.
bool IsMissing(const Violation& violation) {
  const std::string names = ", " + violation.allowed + ", ";
  return violation.value.empty() && !violation.allowed.empty() &&
         names.find(", " + std::string(LastStep(violation.path)) + ", ") != std::string::npos;
}

// Whether a path leads to the element of a line, or of what else a document has several of.
bool IsOwn(const RecordKind& kind, std::string_view path) {
  return !kind.path.empty() && WithoutNumbers(path) == kind.path;
}

// The column of an element, by its path in the record, as a dataset has it.
std::string ColumnAt(std::span<const ListedElement> elements, std::string_view path) {
  std::string column;
  while (!path.empty()) {
    const auto found = std::ranges::find(elements, NameIn(TakeStep(path)), &ListedElement::name);
    if (found == elements.end()) break;
    column.append(column.empty() ? "" : ".").append(found->property);
    elements = found->children;
  }
  return column;
}

// What stands behind the record's own path in a path with numbers.
std::string_view InsideOf(const RecordKind& kind, std::string_view path) {
  for (std::string_view own = kind.path; !own.empty();) {
    TakeStep(own);
    TakeStep(path);
  }
  return path;
}

// What is wrong with a value, without the element that has it.
std::string ReasonOf(const Violation& violation) {
  Violation bare = violation;
  bare.kind.reset();
  bare.place = {};
  bare.path = "x";
  if (!bare.value.empty()) bare.value = "x";
  std::string reason = Describe(bare, SpokenLanguage());
  if (reason.ends_with('.')) reason.pop_back();
  for (const std::string_view subject : {"x, \"x\", ", "x, \"\", ", "x "}) {
    if (reason.starts_with(subject)) return reason.substr(subject.size());
  }
  return reason;
}

// Of a date in a spreadsheet, what is wrong with it; null for other values.
const Text<>* FormOfSpreadsheet(const Violation& violation) {
  if (violation.allowed == "date") return &words::kNotADate;
  return violation.allowed == "dateTime" ? &words::kNotADateTime : nullptr;
}

const RecordKind* KindNamed(std::string_view name) {
  const auto found = std::ranges::find(RecordKinds(), name, &RecordKind::name);
  return found == RecordKinds().end() ? nullptr : &*found;
}

// The number of a text that does not match the pattern of its element.
constexpr int32_t kPattern = 1839;

// What is wrong with the value of a column: of a reference the file that lacks it; of a pattern, which is for programs,
// what such a text is like.
std::string ReasonOf(const Violation& violation, const RecordKind& kind, std::string_view column) {
  const RecordKind* const referred = violation.number == kIdentity ? KindNamed(violation.allowed) : nullptr;
  if (referred != nullptr) return Say(words::kNotIn, referred->file);
  if (violation.number != kPattern) return ReasonOf(violation);
  const Meaning* const meaning = MeaningOf(kind.name, column);
  if (meaning == nullptr || meaning->example.empty()) return Say(words::kNoneOfTheCodes, kind.file);
  return Say(words::kNotLike, meaning->example);
}

}  // namespace

void ViolationErrors::Add(const Violation& violation) {
  if (IsFollowing(violation)) return;
  if (const auto cell = CellOf(violation)) {
    AddAt(*cell, violation);
    return;
  }
  Violation anywhere = violation;
  anywhere.place = {};
  errors_.AddElsewhere(Failure(name_, Describe(anywhere, SpokenLanguage())).what());
}

bool ViolationErrors::IsFollowing(const Violation& violation) const {
  const auto isLost = [&](std::string_view file) { return errors_.IsIncomplete(Dataset::NumberOf(file)); };
  if (!violation.kind) {
    const std::string_view element = LastStep(violation.path);
    if (element == NameOf(EntityKind::kHeader)) return index_.header == 0;
    return element == "MasterFiles" && std::ranges::any_of(RecordKinds(), [&](const RecordKind& kind) {
             return PathOf(kind.entity).starts_with("/AuditFile/MasterFiles/") && isLost(kind.file);
           });
  }
  // A document without a line.
  const RecordKind& kind = RecordKindAt(*violation.kind, violation.path);
  if (IsMissing(violation) && IsOwn(kind, violation.path)) return isLost(kind.file);
  // A reference to a record that may be among the rows that were lost.
  const RecordKind* const referred = violation.number == kIdentity ? KindNamed(violation.allowed) : nullptr;
  return referred != nullptr && isLost(referred->file);
}

std::optional<ViolationErrors::Cell> ViolationErrors::CellOf(const Violation& violation) {
  if (!violation.kind) return std::nullopt;
  const RecordKind& kind = RecordKindAt(*violation.kind, violation.path);
  if (kind.file.empty()) return std::nullopt;
  if (IsMissing(violation) && IsOwn(kind, violation.path)) return ParentOfMissing(violation);
  if (!kind.parents[1].empty()) return PartOf(violation, kind);
  const uint32_t row =
      kind.path.empty() || kind.entity == EntityKind::kTaxTable ? EntityRowOf(violation) : LineRowOf(violation);
  if (row == 0) return std::nullopt;
  return Cell{&kind, row, ColumnAt(RecordColumns(kind).Elements(), InsideOf(kind, violation.path))};
}

// The row of the entity, 0 where it is not known.
uint32_t ViolationErrors::EntityRowOf(const Violation& violation) const {
  switch (*violation.kind) {
    case EntityKind::kHeader:
      return index_.header;
    case EntityKind::kTaxTable: {
      const size_t place = PlaceIn(violation.path.substr(0, violation.path.find('/')));
      return place < index_.tax_entries.size() ? index_.tax_entries[place] : 0;
    }
    default:
      return index_.Of(*violation.kind).Find(violation.key).value_or(0);
  }
}

uint32_t ViolationErrors::LineRowOf(const Violation& violation) const {
  const ChildRows& lines = *violation.kind == EntityKind::kInvoice ? index_.invoice_lines : index_.transaction_lines;
  const auto rows = lines.Of(EntityRowOf(violation));
  const size_t place = PlaceIn(violation.path.substr(0, violation.path.find('/')));
  return place < rows.size() ? rows[place].row : 0;
}

// An order or credit note of a line. An order may stand in the line's own row.
std::optional<ViolationErrors::Cell> ViolationErrors::PartOf(const Violation& violation, const RecordKind& kind) {
  const uint32_t row = EntityRowOf(violation);
  if (row == 0) return std::nullopt;
  if (!invoice_ || invoice_row_ != row) {
    if (!assembly_) assembly_.emplace(dataset_, index_, InvoiceAssembly::Telling::kNo);
    invoice_ = std::make_unique<Invoice>();
    invoice_row_ = row;
    assembly_->Complete(*invoice_, row);
  }
  std::string_view path = violation.path;
  const size_t line = PlaceIn(TakeStep(path));
  if (line >= static_cast<size_t>(invoice_->Line()->Count())) return std::nullopt;
  const std::string_view inside = InsideOf(kind, violation.path);
  const size_t place = PlaceIn(path.substr(0, path.size() - std::min(path.size(), inside.size() + 1)));
  const uint32_t part = assembly_->RowOf(kind.file, *invoice_->Line()->Item(static_cast<int32_t>(line + 1)), place);
  std::string column = ColumnAt(RecordColumns(kind).Elements(), inside);
  if (part != 0) return Cell{&kind, part, std::move(column)};
  const uint32_t line_row = LineRowOf(violation);
  if (line_row == 0) return std::nullopt;
  return Cell{KindNamed("InvoiceLine"), line_row, std::string(kind.name).append(".").append(column)};
}

// A document without any line is wrong in its own row.
std::optional<ViolationErrors::Cell> ViolationErrors::ParentOfMissing(const Violation& violation) const {
  const uint32_t row = EntityRowOf(violation);
  if (row == 0 || *violation.kind == EntityKind::kTaxTable) return std::nullopt;
  return Cell{KindNamed(NameOf(*violation.kind)), row, {}};
}

void ViolationErrors::AddAt(const Cell& cell, const Violation& violation) {
  const size_t number = Dataset::NumberOf(cell.kind->file);
  RowPlace place{number, cell.row};
  if (!cell.column.empty()) {
    if (errors_.IsTold(place, cell.column) || IsRowWithoutKey(cell)) return;
    const auto& columns = FileAt(*cell.kind, 0).Columns();
    if (std::ranges::find(columns, cell.column) == columns.end()) {
      // Nearly every row would be wrong.
      place.row = 1;
      errors_.SetToldInAllRows(number, cell.column);
    }
  }
  errors_.Add(place, cell.column, [&] { return MessageAt(cell, violation); });
}

// Whether a cell is of a row whose key is empty, which is told: a row of totals has little of what a record needs.
bool ViolationErrors::IsRowWithoutKey(const Cell& cell) {
  const std::string_view key = cell.kind->key;
  if (key.empty() || cell.column == key || !errors_.IsTold({Dataset::NumberOf(cell.kind->file), cell.row}, key)) {
    return false;
  }
  const CsvFile& file = FileAt(*cell.kind, cell.row);
  const auto place = std::ranges::find(file.Columns(), key);
  return place != file.Columns().end() && file.Row() == static_cast<int64_t>(cell.row) &&
         file.Cell(static_cast<size_t>(place - file.Columns().begin())).empty();
}

std::string ViolationErrors::MessageAt(const Cell& cell, const Violation& violation) {
  const std::string path = dataset_.PathOf(cell.kind->file);
  if (cell.column.empty()) {
    const RecordKind& kind = RecordKindAt(*violation.kind, violation.path);
    const bool is_alone = IsMissing(violation) && IsOwn(kind, violation.path);
    const std::string reason = std::string(LastStep(violation.path)).append(" ").append(ReasonOf(violation));
    return Failure(path, cell.row, is_alone ? Say(words::kNoRowIn, kind.file) : reason).what();
  }
  const auto& columns = FileAt(*cell.kind, 0).Columns();
  const auto column = std::ranges::find(columns, cell.column);
  if (column == columns.end()) return Failure(path, 1, Say(words::kColumnMissing, Quoted(cell.column))).what();
  const CsvFile& file = FileAt(*cell.kind, cell.row);
  const auto place = static_cast<size_t>(column - columns.begin());
  if (file.Row() != static_cast<int64_t>(cell.row)) return Failure(path, cell.row, ReasonOf(violation)).what();
  if (file.Cell(place).empty()) return Failure(path, cell.row, cell.column + ": " + Say(words::kEmptyCell)).what();
  if (violation.value.empty()) return file.Fault(place, Say(words::kCannotBeWritten)).what();
  const Text<>* const form = file.Dialect().HasDecimalComma() ? FormOfSpreadsheet(violation) : nullptr;
  return file.Fault(place, form ? Say(*form) : ReasonOf(violation, *cell.kind, cell.column)).what();
}

// A file of the dataset at a row, or anywhere for 0.
CsvFile& ViolationErrors::FileAt(const RecordKind& kind, uint32_t row) {
  std::unique_ptr<CsvFile>& file = files_[kind.file];
  if (!file || (row != 0 && file->Row() > row)) file = std::make_unique<CsvFile>(dataset_.PathOf(kind.file));
  while (row != 0 && file->Row() < row) {
    try {
      if (!file->Next()) break;
    } catch (const CsvFault&) {
      // Has been told.
    }
  }
  return *file;
}

}  // namespace zevo::saft
