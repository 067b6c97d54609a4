// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/AuditFileInput.h"

#include <memory>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"

namespace zevo::saft {
AuditFileInput::AuditFileInput(const std::string& file, OutputWhile output) : name_(file), output_(output) {
  file_.set_AuditFileName(InputName(file));
  if (!file_.OpenAuditFile()) Fail();
  size_ = SizeToRead(file_.AuditFileName());
  if (output_ == OutputWhile::kIntoFiles) {
    writing_.emplace(size_ ? Interruption::During::kWriting : Interruption::During::kWritingWhatComes);
  }
}

void AuditFileInput::Read(const Visitor& visit) {
  ReadingProgress progress(size_, output_);
  for (std::shared_ptr<Record> record; ReadNext(record);) {
    visit(file_, *record);
    progress.Show(file_.BytesRead());
    if (writing_) Interruption::ThrowIfRequested();
    if (Interruption::IsRequested()) file_.AbortReading();
  }
}

bool AuditFileInput::ReadNext(std::shared_ptr<Record>& record) {
  if (!file_.ReadNext(record)) {
    // The signal may have ended the program at the other end of the pipe too.
    if (writing_) Interruption::ThrowIfRequested();
    Fail();
  }
  return record != nullptr;
}

void AuditFileInput::Fail() const { FailWith(*file_.AuditException(), name_); }

}  // namespace zevo::saft
