// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <memory>
#include <string>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Valid is a file that is clean.
class CheckerJob : public ValidatingJob {
 public:
  explicit CheckerJob(const Setting& setting) : ValidatingJob(setting) {}

 private:
  bool IsValid(const std::string& name) override {
    AuditFileChecker checker;
    checker.set_AuditFileSchema(ZEVO_SCHEMA_FILE);
    checker.set_AuditFileName(name);
    Require(checker.CheckAuditFile(), "a file could not be judged");
    return checker.Verdict() == CheckVerdict::kClean;
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<CheckerJob>(setting); }

}  // namespace zevo::bench
