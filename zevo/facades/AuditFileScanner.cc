// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileScanner.h>

#include <zevo/Error.h>
#include <zevo/dal/EntityScanner.h>
#include <zevo/facades/ErrorRecording.h>
#include <zevo/mappers/EntityFiller.h>
#include <zevo/model/Record.h>

#include <utility>

namespace zevo {

AuditFileScanner::AuditFileScanner() : Facade("AuditFileScanner", OwnDescription::kWithoutMessageOrLonger) {}
AuditFileScanner::~AuditFileScanner() = default;

const std::string& AuditFileScanner::AuditFileName() const { return file_name_; }
void AuditFileScanner::set_AuditFileName(std::string_view value) { file_name_ = value; }

bool AuditFileScanner::OpenAuditFile() {
  return Attempt([&] {
    RequireOpenable(scanner_ != nullptr, file_name_, Input::kFileOrStandardInput);
    auto scanner = std::make_unique<EntityScanner>(file_name_);
    scanner->Open("AuditFileScanner.OpenAuditFile");
    scanner_ = std::move(scanner);
    failure_ = nullptr;
    abort_requested_ = false;
  });
}

bool AuditFileScanner::ReadNext(std::shared_ptr<Record>& value) {
  value = nullptr;
  const bool read = Attempt([&] {
    Require(scanner_ != nullptr, Message::kNotStarted, "ReadNext");
    if (failure_) throw Error(failure_->Number(), failure_->Source(), failure_->Description());
    Require(!abort_requested_, Message::kReadingAborted, "ReadNext");
    ScannedEntity* const entity = scanner_->Next("AuditFileScanner.ReadNext");
    if (entity != nullptr) value = FillRecord(*entity);
  });
  if (!read && scanner_) failure_ = AuditException();
  return read;
}

bool AuditFileScanner::CloseAuditFile() {
  scanner_ = nullptr;
  failure_ = nullptr;
  ClearError();
  return true;
}

void AuditFileScanner::AbortReading() { abort_requested_ = true; }

uint64_t AuditFileScanner::BytesRead() const { return scanner_ ? scanner_->BytesRead() : 0; }

std::optional<EntityKind> AuditFileScanner::Kind() const {
  const ScannedEntity* const entity = Entity();
  return entity == nullptr ? std::nullopt : std::optional(entity->Kind());
}

FilePlace AuditFileScanner::Place() const { return PlaceOf({}); }

const std::string& AuditFileScanner::JournalID() const {
  static const std::string kNone;
  const ScannedEntity* const entity = Entity();
  return entity == nullptr ? kNone : entity->JournalID();
}

std::span<const ScannedElement> AuditFileScanner::Elements() const {
  const ScannedEntity* const entity = Entity();
  return entity == nullptr ? std::span<const ScannedElement>() : entity->Elements();
}

std::optional<std::string_view> AuditFileScanner::TextOf(std::string_view path) const {
  const ScannedEntity* const entity = Entity();
  const std::optional<size_t> element = entity == nullptr ? std::nullopt : entity->Find(path);
  return element ? std::optional(entity->TextOf(*element)) : std::nullopt;
}

FilePlace AuditFileScanner::PlaceOf(std::string_view path) const {
  const ScannedEntity* const entity = Entity();
  const std::optional<size_t> element = entity == nullptr ? std::nullopt : entity->Find(path);
  return element ? entity->PlaceOf(*element) : FilePlace();
}

const std::vector<Problem>& AuditFileScanner::Problems() const {
  static const std::vector<Problem> kNone;
  if (!scanner_) return kNone;
  const ScannedEntity* const entity = Entity();
  return entity == nullptr ? scanner_->ProblemsAtTheEnd() : entity->Problems();
}

AuditFileScanner::EntityRange AuditFileScanner::Entities() { return EntityRange(*this); }

const ScannedEntity* AuditFileScanner::Entity() const { return scanner_ ? scanner_->Current() : nullptr; }

std::shared_ptr<Record> AuditFileScanner::Next() {
  std::shared_ptr<Record> record;
  if (ReadNext(record)) return record;
  throw Error(AuditException()->Number(), AuditException()->Source(), AuditException()->Description());
}

}  // namespace zevo
