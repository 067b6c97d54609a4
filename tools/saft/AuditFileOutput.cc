#include "tools/saft/AuditFileOutput.h"

#include "tools/saft/Failure.h"

namespace zevo::saft {

AuditFileOutput::AuditFileOutput(std::string_view path) {
  file_.set_AuditFileName(path);
  Do(&AuditFile::CreateAuditFile);
}

void AuditFileOutput::Save() {
  Do(&AuditFile::UpdateAuditFile);
  Do(&AuditFile::CloseAuditFile);
}

void AuditFileOutput::FailAtFile() const {
  throw Failure(file_.AuditFileName(), file_.AuditException()->Description());
}

void AuditFileOutput::FailAtRow(const std::string& source, int64_t row) const {
  throw Failure(source, row, file_.AuditException()->Description());
}

}  // namespace zevo::saft
