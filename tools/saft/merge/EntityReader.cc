// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/EntityReader.h"

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"

namespace zevo::saft {

bool EntityReader::Next() {
  Interruption::ThrowIfRequested();
  if (!scanner_) {
    RequireRegularFile(file_);
    scanner_ = std::make_unique<AuditFileScanner>();
    scanner_->set_AuditFileName(file_);
    record_ = 0;
    read_ = 0;
    if (!scanner_->OpenAuditFile()) FailWith(*scanner_->AuditException(), file_);
  }
  if (!scanner_->ReadNext(last_)) FailWith(*scanner_->AuditException(), file_);
  const uint64_t read = scanner_->BytesRead();
  progress_.Add(read - read_);
  read_ = read;
  if (last_) ++record_;
  return last_ != nullptr;
}

}  // namespace zevo::saft
