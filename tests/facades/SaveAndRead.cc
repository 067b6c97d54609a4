// SPDX-License-Identifier: Apache-2.0
// Builds and saves a file with many records of a kind, and reads it: save_and_read customers|transactions|invoices
// RECORDS

#include <cstdlib>
#include <iostream>
#include <string>

#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"

int main(int argc, char** argv) {
  using namespace zevo::testing;
  if (argc != 3) return EXIT_FAILURE;
  const std::string kind = argv[1];
  const int records = std::stoi(argv[2]);
  SampleSize size{.customers = 1, .transactions = 1, .invoices = 1};
  (kind == "customers" ? size.customers : kind == "transactions" ? size.transactions : size.invoices) = records;
  const TemporaryFolder folder;
  SaveSampleFile(folder.Path("saft.xml"), size);
  const int read = ReadEveryRecord(folder.Path("saft.xml"));
  if (read == records + 2) return EXIT_SUCCESS;
  std::cerr << "read " << read << " records\n";
  return EXIT_FAILURE;
}
