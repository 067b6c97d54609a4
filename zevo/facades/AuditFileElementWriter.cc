// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileElementWriter.h>

#include <zevo/Error.h>
#include <zevo/dal/TextFileDALHelper.h>
#include <zevo/facades/ErrorRecording.h>

namespace zevo {

AuditFileElementWriter::AuditFileElementWriter()
    : Facade("AuditFileElementWriter", OwnDescription::kNever), writer_(std::make_unique<TextFileDALHelper>()) {}
AuditFileElementWriter::~AuditFileElementWriter() = default;

const std::string& AuditFileElementWriter::AuditFileName() const { return writer_->AuditFileName(); }
void AuditFileElementWriter::set_AuditFileName(std::string_view value) { writer_->set_AuditFileName(value); }

bool AuditFileElementWriter::CreateAuditFile() {
  return Attempt([&] {
    RequireCreatable(writer_->IsOpen(), AuditFileName());
    writer_->CreateFile();
  });
}

bool AuditFileElementWriter::CloseAuditFile() {
  writer_->CloseFile();
  ClearError();
  return true;
}

bool AuditFileElementWriter::BeginElement(std::string_view name) {
  return Attempt([&] {
    Require(writer_->IsOpen(), Message::kNotStarted, "BeginElement");
    writer_->BeginElement(name);
  });
}

bool AuditFileElementWriter::EndElement() {
  return Attempt([&] {
    Require(writer_->IsOpen(), Message::kNotStarted, "EndElement");
    if (!writer_->EndInnermost()) throw MakeRunTimeError(RunTimeError::kInvalidCall);
  });
}

bool AuditFileElementWriter::CreateElement(std::string_view name, std::string_view text) {
  const ScannedElement element{.name = name, .depth = 0, .text = text, .place = {}};
  return Attempt([&] {
    Require(writer_->IsOpen(), Message::kNotStarted, "CreateElement");
    writer_->WriteElements({&element, 1});
  });
}

bool AuditFileElementWriter::CreateElements(std::span<const ScannedElement> elements) {
  return Attempt([&] {
    Require(writer_->IsOpen(), Message::kNotStarted, "CreateElements");
    writer_->WriteElements(elements);
  });
}

}  // namespace zevo
