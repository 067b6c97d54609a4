// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/AuditTables.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace zevo::saft {
namespace {

using enum ColumnType;

std::vector<TableColumn> WithKeys(std::vector<TableColumn> columns) {
  std::vector<TableColumn> all{{std::string(kFileColumn), kInteger}, {std::string(kPositionColumn), kInteger}};
  all.insert(all.end(), columns.begin(), columns.end());
  return all;
}

TableShape FilesShape() {
  return {std::string(kFilesTable), WithKeys({{"name", kText},
                                              {"sha256", kText},
                                              {"version", kText},
                                              {"tax_registration_number", kText},
                                              {"company_name", kText},
                                              {"start_date", kDate},
                                              {"end_date", kDate}})};
}

TableShape ProblemsShape() {
  return {"problems", WithKeys({{"line", kInteger},
                                {"column_in_line", kInteger},
                                {"kind", kText},
                                {"key", kText},
                                {"element", kText},
                                {"fault", kText},
                                {"text", kText},
                                {"message", kText}})};
}

TableShape FindingsShape() {
  return {"findings",
          WithKeys({{"line", kInteger},
                    {"column_in_line", kInteger},
                    {"rule", kText},
                    {"severity", kText},
                    {"kind", kText},
                    {"key", kText},
                    {"element", kText},
                    {"found", kText},
                    {"expected", kText},
                    {"difference", kNumber},
                    {"message", kText}}),
          {{"rule"}}};
}

ColumnType TypeOf(const Property* property) {
  if (property == nullptr) return kText;
  switch (property->type) {
    case PropertyType::kText:
      switch (property->text_kind) {
        case TextKind::kDate:
          return kDate;
        case TextKind::kDateTime:
          return kTime;
        case TextKind::kPeriod:
          return kInteger;
        case TextKind::kPlain:
          return kText;
      }
      return kText;
    case PropertyType::kAmount:
    case PropertyType::kSingle:
      return kNumber;
    case PropertyType::kCount:
    case PropertyType::kFlag:
      return kInteger;
    case PropertyType::kCode:
    case PropertyType::kRecord:
    case PropertyType::kCollection:
      return kText;
  }
  return kText;
}

// Fills in the paths of the columns.
void AddPaths(std::span<const ListedElement> elements, const std::string& path, std::vector<std::string>& paths) {
  for (const ListedElement& element : elements) {
    const std::string inside = path + std::string(element.name);
    if (element.is == ListedElement::kCell) paths[element.column] = inside;
    if (element.is == ListedElement::kRecord) AddPaths(element.children, inside + "/", paths);
  }
}

std::string ColumnName(std::string_view path) {
  std::string name = SnakeCase(path);
  std::ranges::replace(name, '/', '_');
  return name;
}

std::string TableName(const RecordKind& kind) {
  const std::string_view file = kind.file;
  return file.empty() ? SnakeCase(kind.name) : std::string(file.substr(0, file.find('.')));
}

// The elements that the records of other kinds are looked up by.
constexpr std::string_view kKeys[] = {"account_id",     "customer_id", "supplier_id", "product_code",
                                      "transaction_id", "invoice_no",  "reference"};

}  // namespace

AuditTables::AuditTables() : shapes_{FilesShape(), ProblemsShape(), FindingsShape()} {
  for (const RecordKind& kind : RecordKinds()) Add(kind);
}

void AuditTables::Add(const RecordKind& kind) {
  RecordTable record{.kind = &kind,
                     .table = shapes_.size(),
                     .parent = records_.size(),
                     .columns = std::make_unique<const RecordColumns>(kind),
                     .paths = {},
                     .fixed = kKeyColumns + 1};
  TableShape shape{TableName(kind), WithKeys({{"line", kInteger}})};
  // The innermost kind that the record is in.
  for (size_t i = 0; i < records_.size(); ++i) {
    const RecordKind& other = *records_[i].kind;
    const bool around = other.entity == kind.entity && kind.path.starts_with(other.path) && other.path != kind.path;
    if (around ||
        (kind.entity == EntityKind::kTransaction && other.entity == EntityKind::kJournal && kind.path.empty())) {
      record.parent = i;
    }
  }
  if (record.parent != records_.size()) {
    shape.columns.push_back({SnakeCase(records_[record.parent].kind->name) + "_position", kInteger});
    shape.indexes.push_back({std::string(kFileColumn), shape.columns.back().name});
    shape.parent = {.table = shapes_[records_[record.parent].table].name, .column = shape.columns.back().name};
    ++record.fixed;
  }
  const std::vector<RecordColumn>& columns = record.columns->Columns();
  record.paths.resize(columns.size());
  AddPaths(record.columns->Elements(), {}, record.paths);
  for (size_t i = 0; i < columns.size(); ++i) {
    const std::string& path = record.paths[i];
    shape.columns.push_back({ColumnName(path.empty() ? columns[i].name : path), TypeOf(columns[i].property)});
  }
  for (const std::string_view key : kKeys) {
    if (std::ranges::find(shape.columns, key, &TableColumn::name) != shape.columns.end()) {
      shape.indexes.push_back({std::string(key)});
    }
  }
  shapes_.push_back(std::move(shape));
  records_.push_back(std::move(record));
}

}  // namespace zevo::saft
