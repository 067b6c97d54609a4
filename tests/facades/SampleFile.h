// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_SAMPLEFILE_H_
#define ZEVO_TESTS_FACADES_SAMPLEFILE_H_

#include <zevo/adapters.h>

#include <memory>
#include <string>
#include <string_view>

namespace zevo::testing {

// Records that the schema accepts.

std::shared_ptr<Header> SampleHeader();
std::shared_ptr<Customer> SampleCustomer(std::string_view id);
std::shared_ptr<Product> SampleProduct(std::string_view code);
std::shared_ptr<Journal> SampleJournal(std::string_view id);
/// A transaction of two lines: `debit` from one account and `credit` to another.
std::shared_ptr<Transaction> SampleTransaction(int number, Amount debit = 10, Amount credit = 10);
/// An invoice of one line.
std::shared_ptr<Invoice> SampleInvoice(int number, std::string_view customer, std::string_view product,
                                       Amount credit = 10);
std::shared_ptr<InvoiceLine> SampleInvoiceLine(int number, std::string_view product, Amount debit, Amount credit);

/// How many records of each kind a sample file holds.
struct SampleSize {
  int customers = 2;
  int transactions = 2;
  int invoices = 2;
};

/// Writes every kind of record into a façade's open document; whether each of the operations succeeded.
bool WriteSampleRecords(AuditFile& file, const SampleSize& size = {});

/// Makes and saves a sample file under a name that is free.
void SaveSampleFile(const std::string& path, const SampleSize& size = {});

/// Opens a file and reads every record of the kinds that sample files vary in; how many there are, -1 when it cannot be
/// opened.
int ReadEveryRecord(const std::string& path);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_SAMPLEFILE_H_
