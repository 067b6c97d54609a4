#include <zevo/adapters.h>

#include <filesystem>
#include <memory>

#include "bench/Competitor.h"
#include "bench/InvalidFile.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

class AuditFileJob : public Competitor {
 public:
  explicit AuditFileJob(const Setting& setting) : setting_(setting) { Options().set_SchemaLocation(ZEVO_SCHEMA_FILE); }

  void Verify() override {
    Require(!IsValid(InvalidFile(setting_)), "an invalid file was accepted");
    Run();
  }

  int64_t Run() override {
    Require(IsValid(setting_.Input()), "a valid file was refused");
    return static_cast<int64_t>(std::filesystem::file_size(setting_.Input()));
  }

 private:
  static bool IsValid(const std::string& name) {
    AuditFile file;
    file.set_AuditFileName(name);
    return file.ValidateAuditFile();
  }

  Setting setting_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<AuditFileJob>(setting); }

}  // namespace zevo::bench
