// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_CONTENTS_H_
#define ZEVO_TESTS_FACADES_CONTENTS_H_

#include <zevo/adapters.h>

#include <memory>
#include <vector>

#include "tests/facades/Choices.h"

namespace zevo::testing {

/// The records of an audit file.
struct Contents {
  Contents() = default;
  /// With arbitrary values in their properties. The journals' numbers differ, so that a reader finds a journal again,
  /// and each has a description, so that it does not have that of its first transaction.
  explicit Contents(Choices& choices);

  std::shared_ptr<Header> header;
  std::vector<std::shared_ptr<GeneralLedger>> accounts;
  std::vector<std::shared_ptr<Customer>> customers;
  std::vector<std::shared_ptr<Supplier>> suppliers;
  std::vector<std::shared_ptr<Product>> products;
  std::shared_ptr<TaxTable> taxes;
  std::shared_ptr<GeneralLedgerEntries> entries;
  std::vector<std::shared_ptr<Journal>> journals;
  std::vector<std::vector<std::shared_ptr<Transaction>>> transactions;  ///< of each journal
  std::shared_ptr<SalesInvoices> sales;
  std::vector<std::shared_ptr<Invoice>> invoices;
};

/// Creates the file and writes everything; whether each step succeeded.
bool Write(AuditFile& file, const Contents& contents);
bool Write(AuditFileStreamWriter& file, const Contents& contents);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_CONTENTS_H_
