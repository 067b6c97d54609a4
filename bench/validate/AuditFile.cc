// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <memory>
#include <string>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

class AuditFileJob : public ValidatingJob {
 public:
  explicit AuditFileJob(const Setting& setting) : ValidatingJob(setting) {
    Options().set_SchemaLocation(ZEVO_SCHEMA_FILE);
  }

 private:
  bool IsValid(const std::string& name) override {
    AuditFile file;
    file.set_AuditFileName(name);
    return file.ValidateAuditFile();
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<AuditFileJob>(setting); }

}  // namespace zevo::bench
