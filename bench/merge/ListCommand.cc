// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/ListCommand.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "bench/merge/MonthsJob.h"

namespace zevo::bench {
namespace {

/// Writes their records into a folder of CSV files each.
class ListJob : public MonthsJob {
 public:
  using MonthsJob::MonthsJob;

  void Verify() override {
    Run();
    int64_t lines = 0;
    for (size_t i = 0; i < Files().size(); ++i) {
      std::ifstream rows(FolderOf(i) + "/invoices.csv");
      lines += std::count(std::istreambuf_iterator(rows), {}, '\n') - 1;
    }
    Require(lines == Invoices(), "not all invoices were written");
  }

 private:
  void Do() override {
    std::filesystem::create_directory(Output());
    for (size_t i = 0; i < Files().size(); ++i) RunCommand<saft::ListCommand>({Files()[i], "--all", FolderOf(i)});
  }
  std::string FolderOf(size_t file) const { return Output() + "/" + std::to_string(file); }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<ListJob>(setting); }

}  // namespace zevo::bench
