// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/TableFile.h"

#include <cerrno>
#include <string_view>
#include <utility>
#include <variant>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/tables/PlainNumber.h"

namespace zevo::saft {
namespace {

void AppendJsonText(std::string& json, std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  json += '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20) {
      json.append("\\u00").append({kDigits[byte >> 4], kDigits[byte & 0xF]});
      continue;
    }
    if (c == '"' || c == '\\') json += '\\';
    json += c;
  }
  json += '"';
}

}  // namespace

TableFile::TableFile(const std::filesystem::path& path, std::string name, const TableShape& shape, FolderForm form)
    : name_(std::move(name)),
      shape_(shape),
      form_(form),
      file_(path, std::ios::binary),
      csv_(file_, CsvForm::kDataset) {
  if (form_ == FolderForm::kCsv) {
    for (const TableColumn& column : shape_.columns) csv_.Add(column.name, CellKind::kText);
    csv_.EndRow();
  }
  CheckWritten();
}

void TableFile::Add(std::span<const Cell> cells) {
  form_ == FolderForm::kCsv ? AddCsv(cells) : AddJson(cells);
  CheckWritten();
}

void TableFile::AddCsv(std::span<const Cell> cells) {
  for (size_t i = 0; i < cells.size(); ++i) {
    if (const auto* const number = std::get_if<int64_t>(&cells[i])) {
      csv_.Add(std::to_string(*number), CellKind::kNumber);
      continue;
    }
    const auto* const text = std::get_if<std::string_view>(&cells[i]);
    if (text != nullptr && text->empty()) {
      csv_.AddEmptyText();
    } else if (text != nullptr && shape_.columns[i].type == ColumnType::kNumber) {
      csv_.Add(PlainNumber(*text), CellKind::kNumber);
    } else {
      csv_.Add(text == nullptr ? std::string_view() : *text, CellKind::kText);
    }
  }
  csv_.EndRow();
}

void TableFile::AddJson(std::span<const Cell> cells) {
  line_ = '{';
  for (size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) line_ += ',';
    AppendJsonText(line_, shape_.columns[i].name);
    line_ += ':';
    if (const auto* const number = std::get_if<int64_t>(&cells[i])) {
      line_ += std::to_string(*number);
    } else if (const auto* const text = std::get_if<std::string_view>(&cells[i]); text == nullptr) {
      line_ += "null";
    } else if (shape_.columns[i].type == ColumnType::kNumber) {
      line_ += PlainNumber(*text);
    } else {
      AppendJsonText(line_, *text);
    }
  }
  file_ << (line_ += "}\n");
}

void TableFile::Finish() {
  file_.close();
  CheckWritten();
}

void TableFile::CheckWritten() const {
  if (!file_) FailWithSystemError(errno, name_);
}

}  // namespace zevo::saft
