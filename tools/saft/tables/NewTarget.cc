// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/NewTarget.h"

#include <string>
#include <string_view>
#include <variant>

namespace zevo::saft {
namespace {

LoadedFile LoadedFileOf(const TableShape& files, std::span<const Cell> cells) {
  const auto textOf = [&](std::string_view column) {
    for (size_t i = 0; i < cells.size(); ++i) {
      const auto* const text = std::get_if<std::string_view>(&cells[i]);
      if (files.columns[i].name == column && text != nullptr) return std::string(*text);
    }
    return std::string();
  };
  return {.id = std::get<int64_t>(cells[0]),
          .name = textOf("name"),
          .sha256 = textOf("sha256"),
          .tax_registration_number = textOf("tax_registration_number"),
          .start_date = textOf("start_date"),
          .end_date = textOf("end_date")};
}

}  // namespace

void NewTarget::Add(size_t table, std::span<const Cell> cells) {
  if (tables_[table].name == kFilesTable) files_.push_back(LoadedFileOf(tables_[table], cells));
  Write(table, cells);
}

}  // namespace zevo::saft
