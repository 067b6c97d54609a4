// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/WorkbookTarget.h"

#include <fcntl.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

constexpr time_t kCreated = 946'684'800;  // 2000-01-01, so that the same rows make the same bytes

lxw_workbook* MakeBook(const std::filesystem::path& file, std::string& temporary) {
  // Rows go into temporary files at once.
  lxw_workbook_options options{.constant_memory = LXW_TRUE, .tmpdir = temporary.data(), .use_zip64 = LXW_FALSE};
  lxw_workbook* const book = workbook_new_opt(file.c_str(), &options);
  if (book == nullptr) throw std::bad_alloc();
  lxw_doc_properties properties{};
  properties.created = kCreated;
  workbook_set_properties(book, &properties);
  return book;
}

UnfinishedPath::What WhatToMake(const std::string& file, bool replace) {
  std::error_code none;
  if (replace) return UnfinishedPath::kFileInstead;
  if (std::filesystem::exists(file, none)) throw Failure(file, Say(words::kReplaceReplaces));
  return UnfinishedPath::kFile;
}

TableShape NotesShape() {
  return {"notes",
          {{"sheet", ColumnType::kText},
           {"row", ColumnType::kInteger},
           {"column", ColumnType::kText},
           {"note", ColumnType::kText}}};
}

}  // namespace

void WorkbookTarget::Free::operator()(lxw_workbook* book) const { lxw_workbook_free(book); }

WorkbookTarget::WorkbookTarget(std::string file, const std::vector<TableShape>& tables, bool replace, uint32_t most)
    : NewTarget(tables),
      name_(std::move(file)),
      place_(name_, WhatToMake(name_, replace)),
      temporary_(place_.Path().parent_path().string()),
      book_(MakeBook(place_.Path(), temporary_)),
      formats_(book_.get()),
      notes_shape_(NotesShape()) {
  for (const TableShape& table : tables) sheets_.emplace_back(book_.get(), formats_, table, most);
  sheets_.emplace_back(book_.get(), formats_, notes_shape_, most);
  // Who opens the workbook sees first which files are in it.
  for (size_t i = 0; i < tables.size(); ++i) {
    if (tables[i].name == kFilesTable) sheets_[i].BeginSheet();
  }
}

void WorkbookTarget::Write(size_t table, std::span<const Cell> cells) {
  sheets_[table].Add(cells, [this](const auto&... note) { AddNote(note...); });
  CheckWritten(sheets_[table]);
}

void WorkbookTarget::AddNote(const std::string& sheet, int64_t row, const std::string& column, const Text<>& note) {
  ++changed_;
  const std::string told = Say(note);
  const Cell cells[] = {std::string_view{sheet}, row, std::string_view{column}, std::string_view{told}};
  sheets_.back().Add(cells, [](const auto&...) {});
  CheckWritten(sheets_.back());
}

void WorkbookTarget::Finish() {
  int64_t largest = 0;
  for (WorkbookSheets& sheets : sheets_) {
    largest = std::max(largest, sheets.Finish());
    CheckWritten(sheets);
  }
  RequireRoom(largest);
  if (const lxw_error error = workbook_close(book_.release()); error != LXW_NO_ERROR) {
    if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) throw std::bad_alloc();
    throw Failure(name_, Say(words::kWorkbookFault, std::string_view(lxw_strerror(error))));
  }
  place_.PutInPlace();
}

void WorkbookTarget::CheckWritten(const WorkbookSheets& sheets) const {
  if (!sheets.IsWritten()) FailWithSystemError(errno, name_);
}

// The library copies each sheet once more, and does not tell when that has no room.
void WorkbookTarget::RequireRoom(int64_t bytes) const {
  if (bytes == 0) return;
  std::string file = temporary_ + "/room";
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (descriptor < 0) FailWithSystemError(errno, name_);
  const int error = posix_fallocate(descriptor, 0, bytes);
  close(descriptor);
  unlink(file.c_str());
  if (error != 0) FailWithSystemError(error, name_);
}

}  // namespace zevo::saft
