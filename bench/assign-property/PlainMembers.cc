// SPDX-License-Identifier: Apache-2.0
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <utility>

#include "bench/Competitor.h"
#include "bench/assign-property/LineValues.h"

namespace zevo::bench {
namespace {

struct PlainLine {
  std::string product_code;
  std::string product_description;
  std::string unit_of_measure;
  std::string tax_point_date;
  std::string description;
  int64_t credit_amount = 0;
};

/// Sets the members of a structure, with no check at all: what a record cannot be quicker than.
class PlainJob : public Competitor {
 public:
  explicit PlainJob(Setting setting) : setting_(std::move(setting)) {}

  void Verify() override {
    Run();
    Require(line_.description == kLineValues[1].description && line_.credit_amount == 99'900, "not set");
  }

  int64_t Run() override {
    FillLines(line_, setting_.invoices, [](PlainLine& line, const LineValues& values) {
      line.product_code = values.product_code;
      line.product_description = values.product_description;
      line.unit_of_measure = values.unit_of_measure;
      line.tax_point_date = values.tax_point_date;
      line.description = values.description;
      line.credit_amount = values.credit_amount;
      benchmark::DoNotOptimize(line);
    });
    return 0;
  }

 private:
  Setting setting_;
  PlainLine line_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<PlainJob>(setting); }

}  // namespace zevo::bench
