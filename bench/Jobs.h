// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_JOBS_H_
#define ZEVO_BENCH_JOBS_H_

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

#include "bench/Competitor.h"
#include "bench/InvalidFile.h"
#include "bench/Tally.h"

namespace zevo::bench {

// What the competitors of a job have in common.

inline int64_t SizeOf(const std::string& file) { return static_cast<int64_t>(std::filesystem::file_size(file)); }

/// Reads the input.
class ReadingJob : public Competitor {
 public:
  explicit ReadingJob(const Setting& setting) : input_(setting.Input()) {}

  void Verify() override { RequireEqual(Count(input_), TallyOf(input_)); }
  int64_t Run() override {
    Read(input_);
    return SizeOf(input_);
  }

 private:
  virtual void Read(const std::string& file) = 0;
  /// Reads in the same way, and tells what was there.
  virtual Tally Count(const std::string& file) = 0;

  std::string input_;
};

/// Writes transactions and invoices from those of a pool.
class WritingJob : public Competitor {
 public:
  explicit WritingJob(Setting setting) : setting_(std::move(setting)) {}

  void Verify() override {
    Run();
    RequireEqual(TallyOf(setting_.Output()), TallyOf(setting_.Pool()).Times(setting_.invoices / kPool));
  }
  int64_t Run() override {
    std::filesystem::remove(setting_.Output());
    Write(setting_.Output(), setting_.invoices);
    return SizeOf(setting_.Output());
  }

 private:
  /// The file does not exist.
  virtual void Write(const std::string& file, int64_t invoices) = 0;

  Setting setting_;
};

/// Validates the input, the loading of the schema included.
class ValidatingJob : public Competitor {
 public:
  explicit ValidatingJob(Setting setting) : setting_(std::move(setting)) {}

  void Verify() override {
    Require(!IsValid(InvalidFile(setting_)), "an invalid file was accepted");
    Run();
  }
  int64_t Run() override {
    Require(IsValid(setting_.Input()), "a valid file was refused");
    return SizeOf(setting_.Input());
  }

 private:
  virtual bool IsValid(const std::string& file) = 0;

  Setting setting_;
};

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_JOBS_H_
