// SPDX-License-Identifier: Apache-2.0
#include <benchmark/benchmark.h>
#include <zevo/adapters.h>

#include <memory>
#include <utility>

#include "bench/Competitor.h"
#include "bench/assign-property/LineValues.h"

namespace zevo::bench {
namespace {

/// Sets the properties of a record, each text checked against the length that the schema gives it.
class RecordJob : public Competitor {
 public:
  explicit RecordJob(Setting setting) : setting_(std::move(setting)) { Options().set_SchemaLocation(ZEVO_SCHEMA_FILE); }

  void Verify() override {
    Run();
    Require(line_.Description() == kLineValues[1].description && line_.CreditAmount().Scaled() == 99'900, "not set");
    line_.set_Description(std::string(200, 'x'));
    Require(line_.Description().size() == 60, "not cut");
  }

  int64_t Run() override {
    FillLines(line_, setting_.invoices, [](InvoiceLine& line, const LineValues& values) {
      line.set_ProductCode(values.product_code);
      line.set_ProductDescription(values.product_description);
      line.set_UnitOfMeasure(values.unit_of_measure);
      line.set_TaxPointDate(values.tax_point_date);
      line.set_Description(values.description);
      line.set_CreditAmount(Amount::FromScaled(values.credit_amount));
      benchmark::DoNotOptimize(line);
    });
    return 0;
  }

 private:
  Setting setting_;
  InvoiceLine line_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<RecordJob>(setting); }

}  // namespace zevo::bench
