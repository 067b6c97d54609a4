// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/FileCheck.h>
#include <zevo/check/Rule.h>
#include <zevo/dal/EntityScanner.h>

#include <memory>
#include <string>

#include "bench/judge/JudgingJob.h"

namespace zevo::bench {
namespace {

/// Scans and judges by all rules.
class FileCheckJob : public JudgingJob {
 public:
  explicit FileCheckJob(const Setting& setting) : JudgingJob(setting) {}

 private:
  int64_t InvoicesOf(const std::string& file) override {
    CheckSettings settings;
    for (const RuleInfo& rule : AllRuleInfos()) settings.severities.push_back(rule.severity);
    const Findings::Sink found;
    Findings findings(settings, found, false);
    FileCheck check(settings, findings);
    EntityScanner scanner(file);
    scanner.Open("bench");
    int64_t invoices = 0;
    while (const ScannedEntity* const entity = scanner.Next("bench")) {
      if (entity->Kind() == EntityKind::kInvoice) ++invoices;
      check.Judge(*entity);
    }
    check.End();
    Require(findings.Verdict() == CheckVerdict::kClean, "a clean file was blamed");
    return invoices;
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<FileCheckJob>(setting); }

}  // namespace zevo::bench
