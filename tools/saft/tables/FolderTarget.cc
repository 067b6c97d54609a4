// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/FolderTarget.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <string_view>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/tables/DataPackage.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

constexpr size_t kYearDigits = 4;

bool HasFiles(const std::string& folder) {
  std::error_code none;
  return std::filesystem::is_directory(folder, none) && !std::filesystem::is_empty(folder, none) && !none;
}

// What is replaced is deleted: it must be what an export made.
void RequireExport(const std::string& folder, const std::vector<TableShape>& tables) {
  if (!HasFiles(folder)) return;
  std::error_code error;
  bool described = false;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    const std::string name = entry.path().filename().string();
    const bool describes = name == kDataPackageFile;
    described = described || describes;
    const bool isTable = std::ranges::any_of(tables, [&](const TableShape& table) {
      return name == table.name || name == table.name + ".csv" || name == table.name + ".jsonl";
    });
    if (!describes && !isTable) throw Failure(folder, Say(words::kFolderHasOther, Quoted(name)));
  }
  if (error) FailWithSystemError(error.value(), folder);
  if (!described) throw Failure(folder, Say(words::kFolderNoExport));
}

UnfinishedPath::What WhatToMake(const std::string& folder, const std::vector<TableShape>& tables, bool replace) {
  if (!replace && HasFiles(folder)) throw Failure(folder, Say(words::kReplaceReplacesFolder));
  if (!replace) return UnfinishedPath::kFolder;
  RequireExport(folder, tables);
  return UnfinishedPath::kFolderInstead;
}

std::string PartName(std::string_view value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  if (value.empty()) return "__HIVE_DEFAULT_PARTITION__";
  std::string name;
  for (const char c : value) {
    const bool plain =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '_';
    const auto byte = static_cast<unsigned char>(c);
    plain ? void(name += c) : void(name.append({'%', kDigits[byte >> 4], kDigits[byte & 0xF]}));
  }
  return name;
}

}  // namespace

FolderTarget::FolderTarget(const std::string& folder, const std::vector<TableShape>& tables, Choice choice)
    : NewTarget(tables),
      name_(folder),
      choice_(choice),
      folder_(folder, WhatToMake(folder, tables, choice.replace)),
      paths_(tables.size()) {
  if (!choice_.parts) OpenFiles();
}

void FolderTarget::Begin() {
  if (choice_.parts) OpenFiles();
}

void FolderTarget::Write(size_t table, std::span<const Cell> cells) { files_[table]->Add(cells); }

void FolderTarget::EndFile() {
  if (!choice_.parts) return;
  CloseFiles();
  // Where the parts belong is known once the file has been read.
  for (size_t i = 0; i < Tables().size(); ++i) {
    const std::filesystem::path part = PathOfPart(Tables()[i]);
    const std::filesystem::path path = folder_.Path() / part;
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (!error) std::filesystem::rename(folder_.Path() / NameOfFile(Tables()[i]), path, error);
    if (error) FailWithSystemError(error.value(), (std::filesystem::path(name_) / part).string());
    paths_[i].push_back(part.string());
  }
}

void FolderTarget::Finish() {
  if (!choice_.parts) {
    CloseFiles();
    for (size_t i = 0; i < Tables().size(); ++i) paths_[i] = {NameOfFile(Tables()[i])};
  }
  std::ofstream package(folder_.Path() / kDataPackageFile, std::ios::binary);
  package << DataPackageOf(Tables(), paths_, choice_.form);
  package.close();
  if (!package) FailWithSystemError(errno, (std::filesystem::path(name_) / kDataPackageFile).string());
  folder_.PutInPlace();
}

void FolderTarget::OpenFiles() {
  for (const TableShape& table : Tables()) {
    const std::string name = NameOfFile(table);
    files_.push_back(std::make_unique<TableFile>(folder_.Path() / name, (std::filesystem::path(name_) / name).string(),
                                                 table, choice_.form));
  }
}

void FolderTarget::CloseFiles() {
  for (const auto& file : files_) file->Finish();
  files_.clear();
}

std::string FolderTarget::NameOfFile(const TableShape& table) const {
  return table.name + "." + std::string(NameOf(choice_.form));
}

std::filesystem::path FolderTarget::PathOfPart(const TableShape& table) const {
  const LoadedFile& file = LastFile();
  return std::filesystem::path(table.name) / ("company=" + PartName(file.tax_registration_number)) /
         ("year=" + PartName(file.start_date.substr(0, kYearDigits))) /
         ("part-" + std::to_string(file.id) + "." + std::string(NameOf(choice_.form)));
}

}  // namespace zevo::saft
