// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/RecordPrinter.h"

#include <csv.h>

#include <cstddef>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

Json ToJson(const Record& record);

Json ToJson(const Property& property, const Record& record) {
  if (property.type == PropertyType::kCollection) {
    Json items = Json::array();
    const int32_t count = property.count(record);
    for (int32_t position = 1; position <= count; ++position) {
      items.push_back(ToJson(*property.item(record, position)));
    }
    return items;
  }
  const PropertyValue value = property.get(record);
  switch (property.type) {
    case PropertyType::kRecord: {
      const auto child = std::get<std::shared_ptr<Record>>(value);
      return child ? ToJson(*child) : Json();
    }
    case PropertyType::kFlag:
      return std::get<bool>(value);
    case PropertyType::kCount:
      return std::get<int32_t>(value);
    case PropertyType::kSingle:
      // Converted through its text: a double made of a float shows digits that the float does not have.
      return Json::parse(TextFromValue(property, value), nullptr, false);
    default:
      return TextFromValue(property, value);
  }
}

Json ToJson(const Record& record) {
  Json json = Json::object();
  for (const Property& property : PropertiesOf(record)) json[property.name] = ToJson(property, record);
  return json;
}

}  // namespace

void RecordPrinter::Put(const std::string& row) {
  if (reader_ == Reader::kTerminal) {
    out_ << Visible(row) << '\n';
  } else {
    out_ << row << '\n';
  }
}

CsvPrinter::CsvPrinter(const RecordKind& kind, std::ostream& out, Reader reader) : RecordPrinter(out, reader) {
  std::vector<std::string> names;
  const std::shared_ptr<Record> sample = kind.make();
  WalkProperties(PropertiesOf(*sample), [&](std::string_view path, const Property& property) {
    if (!IsPlain(property) || property.set == nullptr) return;
    names.emplace_back(path);
    columns_.emplace_back(path, *sample);
  });
  for (const std::string_view parent : kind.parents) AddCell(std::string(parent));
  for (const std::string& name : names) AddCell(name);
  EndRow();
}

void CsvPrinter::Print(const std::vector<std::string>& parents, const Record& record) {
  for (const std::string& parent : parents) AddCell(parent);
  for (const ColumnBinding& column : columns_) AddCell(column.Text(record));
  EndRow();
}

void CsvPrinter::AddCell(const std::string& text) {
  if (text.find_first_of("\",\r\n") == std::string::npos) {
    row_ += text;
  } else {
    const size_t before = row_.size();
    row_.resize(before + 2 * text.size() + 2);
    row_.resize(before + csv_write(row_.data() + before, row_.size() - before, text.data(), text.size()));
  }
  row_ += ',';
}

void CsvPrinter::EndRow() {
  row_.pop_back();
  Put(row_);
  row_.clear();
}

void JsonPrinter::Print(const std::vector<std::string>& parents, const Record& record) {
  Json json = Json::object();
  for (size_t i = 0; i < parents.size(); ++i) json[kind_.parents[i]] = parents[i];
  json.update(ToJson(record));
  Put(json.dump());
}

}  // namespace zevo::saft
