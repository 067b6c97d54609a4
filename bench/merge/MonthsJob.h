// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_MERGE_MONTHSJOB_H_
#define ZEVO_BENCH_MERGE_MONTHSJOB_H_

#include <zevo/adapters.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/Jobs.h"
#include "tools/generate/SampleRecords.h"
#include "tools/saft/command/Command.h"

namespace zevo::bench {

/// Has the tool do something with the files of the twelve months of a year, which are written once.
class MonthsJob : public Competitor {
 public:
  explicit MonthsJob(const Setting& setting) : setting_(setting) {
    const std::string folder = setting.folder + "/months";
    std::filesystem::create_directory(folder);
    const generate::SampleRecords records(setting.invoices, 1);
    for (int month = 0; month < generate::SampleRecords::kMonths; ++month) {
      files_.push_back(folder + "/" + std::to_string(setting.invoices) + "-" + std::to_string(month) + ".xml");
      if (std::filesystem::exists(files_.back())) continue;
      AuditFileStreamWriter file;
      file.set_AuditFileName(files_.back());
      generate::WriteTo(file, records, {.first = month, .end = month + 1});
    }
  }

  int64_t Run() override {
    std::filesystem::remove_all(Output());
    Do();
    int64_t bytes = 0;
    for (const std::string& file : files_) bytes += SizeOf(file);
    return bytes;
  }

 protected:
  virtual void Do() = 0;

  /// What the job writes, a file or a folder.
  std::string Output() const { return setting_.folder + "/months-output"; }
  int64_t Invoices() const { return setting_.invoices; }
  const std::vector<std::string>& Files() const { return files_; }

  /// Runs a command of the tool as with these arguments.
  template <class CommandOfTool>
  static void RunCommand(std::vector<std::string> arguments) {
    CLI::App options;
    const CommandOfTool command(options);
    std::ranges::reverse(arguments);  // as they are taken from the end
    options.parse(arguments);
    Require(command.Run() == saft::kDone, "the command failed");
  }

 private:
  Setting setting_;
  std::vector<std::string> files_;
};

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_MERGE_MONTHSJOB_H_
