// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/EntityScanner.h>

#include <memory>
#include <string>

#include "bench/judge/JudgingJob.h"

namespace zevo::bench {
namespace {

/// Scans and judges nothing.
class ScannerJob : public JudgingJob {
 public:
  explicit ScannerJob(const Setting& setting) : JudgingJob(setting) {}

 private:
  int64_t InvoicesOf(const std::string& file) override {
    EntityScanner scanner(file);
    scanner.Open("bench");
    int64_t invoices = 0;
    while (const ScannedEntity* const entity = scanner.Next("bench")) {
      if (entity->Kind() == EntityKind::kInvoice) ++invoices;
    }
    return invoices;
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<ScannerJob>(setting); }

}  // namespace zevo::bench
