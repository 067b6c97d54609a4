// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_JUDGE_JUDGINGJOB_H_
#define ZEVO_BENCH_JUDGE_JUDGINGJOB_H_

#include <cstdint>
#include <string>
#include <utility>

#include "bench/Jobs.h"

namespace zevo::bench {

/// Goes through the entities of the input, whose invoices are as many as were asked for.
class JudgingJob : public Competitor {
 public:
  explicit JudgingJob(Setting setting) : setting_(std::move(setting)) {}

  void Verify() override { Run(); }
  int64_t Run() override {
    Require(InvoicesOf(setting_.Input()) == setting_.invoices, "not all invoices were there");
    return SizeOf(setting_.Input());
  }

 private:
  virtual int64_t InvoicesOf(const std::string& file) = 0;

  Setting setting_;
};

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_JUDGE_JUDGINGJOB_H_
