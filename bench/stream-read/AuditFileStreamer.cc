#include <zevo/adapters.h>

#include <filesystem>
#include <memory>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

template <class Lines>
int64_t CreditOf(const Lines& lines) {
  int64_t credit = 0;
  for (const auto& line : lines) credit += line->CreditAmount().Scaled();
  return credit;
}

/// Has every record filled and delivered.
class StreamerJob : public Competitor {
 public:
  explicit StreamerJob(const Setting& setting) : name_(setting.Input()) {}

  void Verify() override {
    Tally found;
    Stream([&](const std::string&, const std::shared_ptr<Record>& record) {
      if (const auto* transaction = dynamic_cast<const Transaction*>(record.get())) {
        ++found.transactions;
        found.credit += CreditOf(*transaction->Line());
      } else if (const auto* invoice = dynamic_cast<const Invoice*>(record.get())) {
        ++found.invoices;
        found.credit += CreditOf(*invoice->Line());
      }
    });
    RequireEqual(found, TallyOf(name_));
  }

  int64_t Run() override {
    Stream([](const std::string&, const std::shared_ptr<Record>&) {});
    return static_cast<int64_t>(std::filesystem::file_size(name_));
  }

 private:
  template <class Handler>
  void Stream(Handler&& handler) {
    AuditFileStreamer file;
    file.set_AuditFileName(name_);
    file.ReadEntity = handler;
    Require(file.OpenAuditFile(), "not opened");
    // The result is no sign: the tax table cannot be read.
    file.ReadAuditFile();
    Require(!file.AuditException(), "not read");
  }

  std::string name_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<StreamerJob>(setting); }

}  // namespace zevo::bench
