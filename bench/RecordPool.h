// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_RECORDPOOL_H_
#define ZEVO_BENCH_RECORDPOOL_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "bench/Competitor.h"
#include "tools/generate/SampleRecords.h"

namespace zevo::bench {

/// The records of the pool file, made once.
class RecordPool {
 public:
  RecordPool() {
    for (int64_t i = 0; i < kPool; ++i) {
      transactions_.push_back(sample_.TransactionAt(i));
      invoices_.push_back(sample_.InvoiceAt(i));
    }
  }

  const Transaction& TransactionAt(int64_t number) const { return *transactions_[Place(number)]; }
  const Invoice& InvoiceAt(int64_t number) const { return *invoices_[Place(number)]; }
  std::unique_ptr<Journal> TheJournal() const { return sample_.JournalOf(0); }

 private:
  static size_t Place(int64_t number) { return static_cast<size_t>(number % kPool); }

  generate::SampleRecords sample_{kPool, 1};
  std::vector<std::unique_ptr<Transaction>> transactions_;
  std::vector<std::unique_ptr<Invoice>> invoices_;
};

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_RECORDPOOL_H_
