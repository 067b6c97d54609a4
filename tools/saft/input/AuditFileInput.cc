// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/AuditFileInput.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/ProgressBar.h"

namespace zevo::saft {
namespace {

// No progress bar where the output is a pipe: the program at its other end may be writing to the same terminal.
bool IsProgressWelcome(OutputWhile output) {
  struct stat standardOutput {};
  const bool piped = fstat(STDOUT_FILENO, &standardOutput) == 0 && S_ISFIFO(standardOutput.st_mode);
  if (output == OutputWhile::kIntoFiles) return isatty(STDERR_FILENO) == 1;
  const bool inTheWay = output == OutputWhile::kReading && isatty(STDOUT_FILENO) == 1;
  return isatty(STDERR_FILENO) == 1 && !piped && !inTheWay;
}

}  // namespace

AuditFileInput::AuditFileInput(const std::string& file, OutputWhile output) : name_(file), output_(output) {
  file_.set_AuditFileName(InputName(file));
  if (!file_.OpenAuditFile()) Fail();
  std::error_code unknown;
  if (const auto size = std::filesystem::file_size(file_.AuditFileName(), unknown); !unknown) size_ = size;
  if (output_ == OutputWhile::kIntoFiles) {
    writing_.emplace(size_ ? Interruption::During::kWriting : Interruption::During::kWritingWhatComes);
  }
}

void AuditFileInput::Read(const Visitor& visit) {
  std::optional<ProgressBar> progress;
  std::optional<Interruption> reading;
  if (size_ && IsProgressWelcome(output_)) progress.emplace(std::cerr, *size_);
  // Where nothing has to be removed, signals are noted only for files of a known size: reading from a pipe or a
  // terminal may wait, and the signal would be seen only after that.
  if (size_ && !writing_) reading.emplace(Interruption::During::kReading);
  for (std::shared_ptr<Record> record; ReadNext(record);) {
    visit(file_, *record);
    if (progress) progress->Show(file_.BytesRead());
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
