// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileStreamer.h>

#include <zevo/Error.h>
#include <zevo/dal/SAXDALReader.h>
#include <zevo/facades/ErrorRecording.h>
#include <zevo/mappers/EntityMapper.h>
#include <zevo/model/Record.h>
#include <zevo/platform/HostMessages.h>

namespace zevo {

AuditFileStreamer::AuditFileStreamer()
    : Facade("AuditFileStreamer", OwnDescription::kNever), reader_(std::make_unique<SAXDALReader>()) {
  reader_->ReadEntity = [this](const std::string& entityName, Element) {
    const std::shared_ptr<Record> record = Build(reader_->Kind());
    if (ReadEntity) ReadEntity(entityName, record);
  };
  reader_->FinishedReading = [this] {
    if (FinishedReading) FinishedReading();
    reading_ = false;
  };
}
AuditFileStreamer::~AuditFileStreamer() = default;

const std::string& AuditFileStreamer::AuditFileName() const { return reader_->AuditFileName(); }
void AuditFileStreamer::set_AuditFileName(std::string_view value) { reader_->set_AuditFileName(value); }

bool AuditFileStreamer::OpenAuditFile() {
  return Attempt([&] {
    RequireOpenable(reader_->IsOpen(), AuditFileName(), Input::kFileOrStandardInput);
    reader_->OpenFile();
  });
}

bool AuditFileStreamer::ReadAuditFile(bool wait) {
  const bool read = Attempt([&] {
    Require(reader_->IsOpen(), Message::kNotStarted, "ReadAuditFile");
    reading_ = true;
    entity_failed_ = false;
    reader_->ReadFile();
    // ReadFile has raised FinishedReading, which makes reading_ false.
    // cppcheck-suppress knownConditionTrueFalse
    while (wait && reading_) AwaitHostMessages();
  });
  return read && !entity_failed_;
}

bool AuditFileStreamer::CloseAuditFile() {
  reader_->CloseFile();
  ClearError();
  return true;
}

void AuditFileStreamer::AbortReading() {
  if (reader_->IsOpen()) reader_->set_AbortRequested(true);
}

uint64_t AuditFileStreamer::BytesRead() const { return reader_->BytesRead(); }

// A record that cannot be built does not end the reading. AuditException tells why until the handler returns.
std::shared_ptr<Record> AuditFileStreamer::Build(EntityKind kind) {
  std::shared_ptr<Record> record;
  const bool built = Attempt([&] {
    if (!reader_->IsOpen()) Require(false, Message::kNotStarted, std::string("Read").append(NameOf(kind)));
    record = zevo::ReadEntity(kind, *reader_);
  });
  if (!built) entity_failed_ = true;
  return built ? record : nullptr;
}

}  // namespace zevo
