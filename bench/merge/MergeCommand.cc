// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MergeCommand.h"

#include <zevo/adapters.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/merge/MonthsJob.h"

namespace zevo::bench {
namespace {

/// Makes one file of them.
class MergeJob : public MonthsJob {
 public:
  using MonthsJob::MonthsJob;

  void Verify() override {
    Run();
    AuditFileScanner file;
    file.set_AuditFileName(Output());
    Require(file.OpenAuditFile(), "no file was written");
    int64_t invoices = 0;
    std::shared_ptr<Record> record;
    while (file.ReadNext(record) && record != nullptr) invoices += file.Kind() == EntityKind::kInvoice ? 1 : 0;
    Require(record == nullptr && invoices == Invoices(), "not all invoices were written");
  }

 private:
  void Do() override {
    std::vector<std::string> arguments = Files();
    arguments.insert(arguments.end(), {"--output", Output(), "--no-validate"});
    RunCommand<saft::MergeCommand>(arguments);
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<MergeJob>(setting); }

}  // namespace zevo::bench
