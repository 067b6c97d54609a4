#include "tools/saft/RecordFile.h"

#include <algorithm>
#include <filesystem>

#include "tools/saft/PropertyText.h"
#include "tools/saft/Utf8.h"

namespace zevo::saft {

RecordFile::RecordFile(const std::string& path, std::span<const Property> properties, const KeyColumns& keys,
                       ShortenedTexts& shortened)
    : path_(path), shortened_(shortened) {
  if (!std::filesystem::exists(path)) return;
  csv_.emplace(path);
  if (!csv_->Columns().empty()) Bind(properties, keys);
}

void RecordFile::Bind(std::span<const Property> properties, const KeyColumns& keys) {
  for (const std::string_view parent : keys.parents) parents_.push_back(PlaceOf(parent));
  if (!keys.key.empty()) key_ = PlaceOf(keys.key);
  for (size_t place = 0; place < csv_->Columns().size(); ++place) {
    if (std::ranges::find(parents_, place) != parents_.end()) continue;
    const std::string& name = csv_->Columns()[place];
    try {
      columns_.push_back({place, ColumnBinding(name, properties)});
    } catch (const BadValue& bad) {
      csv_->Fail("column " + Quoted(name) + ": " + bad.what());
    }
  }
}

size_t RecordFile::PlaceOf(std::string_view column) const {
  const auto& columns = csv_->Columns();
  const auto found = std::ranges::find(columns, column);
  if (found == columns.end()) csv_->Fail("column " + Quoted(column) + " is missing");
  return static_cast<size_t>(found - columns.begin());
}

void RecordFile::Fill(Record& record) {
  for (const auto& [place, binding] : columns_) {
    const std::string& cell = csv_->Cell(place);
    if (cell.empty()) continue;
    try {
      binding.Set(record, cell);
    } catch (const BadValue& bad) {
      csv_->Fail(place, bad.what());
    }
    if (!binding.IsText()) continue;
    if (const std::string kept = binding.Text(record); kept != cell) shortened_.Add(*csv_, place, kept);
  }
}

std::string RecordFile::KeptKey(const Record& record) const {
  const auto column = std::ranges::find(columns_, *key_, &Column::place);
  return column->binding.IsText() && !Key().empty() ? column->binding.Text(record) : Key();
}

}  // namespace zevo::saft
