// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/ListFile.h"

#include <cerrno>
#include <utility>

#include "tools/saft/errors/Failure.h"

namespace zevo::saft {

ListFile::ListFile(const std::filesystem::path& path, std::string name, const RecordKind& kind,
                   const ListChoice& choice)
    : name_(std::move(name)), file_(path, std::ios::binary), list_(kind, choice, file_) {
  CheckWritten();
}

void ListFile::Take(const AuditFileScanner& scanner) {
  list_.Take(scanner);
  CheckWritten();
}

void ListFile::Finish() {
  file_.close();
  CheckWritten();
}

void ListFile::CheckWritten() const {
  if (!file_) FailWithSystemError(errno, name_);
}

}  // namespace zevo::saft
