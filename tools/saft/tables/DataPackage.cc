// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/DataPackage.h"

#include <nlohmann/json.hpp>

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

std::string_view FieldType(ColumnType type) {
  switch (type) {
    case ColumnType::kText:
      return "string";
    case ColumnType::kInteger:
      return "integer";
    case ColumnType::kNumber:
      return "number";
    case ColumnType::kDate:
      return "date";
    case ColumnType::kTime:
      return "datetime";
  }
  return "string";
}

Json ForeignKey(const Json& fields, std::string_view table, const Json& tableFields) {
  return {{"fields", fields}, {"reference", {{"resource", table}, {"fields", tableFields}}}};
}

Json SchemaOf(const TableShape& table) {
  Json schema;
  schema["fields"] = Json::array();
  for (const TableColumn& column : table.columns) {
    schema["fields"].push_back({{"name", column.name}, {"type", FieldType(column.type)}});
  }
  schema["primaryKey"] = Json::array({kFileColumn, kPositionColumn});
  Json keys = Json::array();
  if (table.name != kFilesTable) {
    keys.push_back(ForeignKey(Json::array({kFileColumn}), kFilesTable, Json::array({kFileColumn})));
  }
  if (table.parent) {
    keys.push_back(ForeignKey(Json::array({kFileColumn, table.parent->column}), table.parent->table,
                              Json::array({kFileColumn, kPositionColumn})));
  }
  if (!keys.empty()) schema["foreignKeys"] = keys;
  return schema;
}

}  // namespace

std::string DataPackageOf(const std::vector<TableShape>& tables, const std::vector<std::vector<std::string>>& paths,
                          FolderForm form) {
  Json package{{"$schema", "https://datapackage.org/profiles/2.0/datapackage.json"},
               {"name", "saft-export"},
               {"resources", Json::array()}};
  for (size_t i = 0; i < tables.size(); ++i) {
    const Json path = paths[i].size() == 1 ? Json(paths[i].front()) : Json(paths[i]);
    package["resources"].push_back({{"name", tables[i].name},
                                    {"path", path},
                                    {"format", NameOf(form)},
                                    {"mediatype", form == FolderForm::kCsv ? "text/csv" : "application/jsonl"},
                                    {"encoding", "utf-8"},
                                    {"schema", SchemaOf(tables[i])}});
  }
  return package.dump(2) + '\n';
}

}  // namespace zevo::saft
