// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/DatasetFolder.h"

#include <filesystem>
#include <optional>

namespace zevo::saft {
namespace {

bool StandsIn(EntityKind section, EntityKind kind) {
  for (std::optional<EntityKind> around = ParentOf(kind); around; around = ParentOf(*around)) {
    if (*around == section) return true;
  }
  return false;
}

}  // namespace

DatasetFolder::DatasetFolder(const std::string& folder, ListForm form)
    : folder_(folder, UnfinishedPath::kFolder), name_(folder), choice_{.form = form} {}

void DatasetFolder::Take(const AuditFileScanner& scanner) {
  const EntityKind entity = *scanner.Kind();
  for (const RecordKind& kind : RecordKinds()) {
    if (kind.file.empty()) continue;
    if (kind.entity == entity) FileOf(kind).Take(scanner);
    if (HoldsEntries(entity) && StandsIn(entity, kind.entity)) FileOf(kind);
  }
}

ListFile& DatasetFolder::FileOf(const RecordKind& kind) {
  std::unique_ptr<ListFile>& file = files_[kind.file];
  if (!file) {
    const std::string name = (std::filesystem::path(name_) / kind.file).string();
    file = std::make_unique<ListFile>(folder_.Path() / kind.file, name, kind, choice_);
  }
  return *file;
}

void DatasetFolder::Finish() {
  for (const auto& [name, file] : files_) file->Finish();
  folder_.PutInPlace();
}

}  // namespace zevo::saft
