// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <memory>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

template <class Lines>
int64_t CreditOf(const Lines& lines) {
  int64_t credit = 0;
  for (const auto& line : lines) credit += line->CreditAmount().Scaled();
  return credit;
}

/// Has every record filled and delivered.
class StreamerJob : public ReadingJob {
 public:
  using ReadingJob::ReadingJob;

 private:
  Tally Count(const std::string& name) override {
    Tally found;
    Stream(name, [&](const std::string&, const std::shared_ptr<Record>& record) {
      if (const auto* transaction = dynamic_cast<const Transaction*>(record.get())) {
        ++found.transactions;
        found.credit += CreditOf(*transaction->Line());
      } else if (const auto* invoice = dynamic_cast<const Invoice*>(record.get())) {
        ++found.invoices;
        found.credit += CreditOf(*invoice->Line());
      }
    });
    return found;
  }

  void Read(const std::string& name) override {
    Stream(name, [](const std::string&, const std::shared_ptr<Record>&) {});
  }

  template <class Handler>
  static void Stream(const std::string& name, Handler&& handler) {
    AuditFileStreamer file;
    file.set_AuditFileName(name);
    file.ReadEntity = handler;
    Require(file.OpenAuditFile(), "not opened");
    // The result is no sign: the tax table cannot be read.
    file.ReadAuditFile();
    Require(!file.AuditException(), "not read");
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<StreamerJob>(setting); }

}  // namespace zevo::bench
