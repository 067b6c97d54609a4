// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/MasterFilesWriter.h"

#include <memory>
#include <utility>

#include "tools/saft/dataset/KeyIndex.h"
#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {

void MasterFilesWriter::Write() {
  WriteHeader();
  WriteEach<GeneralLedger>(Dataset::kGeneralLedger, "AccountID");
  WriteEach<Customer>(Dataset::kCustomers, "CustomerID");
  WriteEach<Supplier>(Dataset::kSuppliers, "SupplierID");
  WriteEach<Product>(Dataset::kProducts, "ProductCode");
  WriteTaxTable();
}

void MasterFilesWriter::WriteHeader() {
  RecordFile rows = dataset_.Open<Header>(Dataset::kHeader, {});
  if (!rows.Next()) return;
  Header header;
  rows.Fill(header);
  if (header.BusinessName().empty()) rows.NoteAbsent("BusinessName");
  output_.Write(header, {rows.Path(), rows.Row()});
  if (rows.Next()) rows.Fail("a second header");
}

template <class T>
void MasterFilesWriter::WriteEach(const char* file, std::string_view key) {
  RecordFile rows = dataset_.Open<T>(file, {.key = key});
  KeyIndex keys;
  while (rows.Next()) {
    T record;
    rows.Fill(record);
    keys.Add(rows, record);
    output_.Write(record, {rows.Path(), rows.Row()});
  }
}

void MasterFilesWriter::WriteTaxTable() {
  RecordFile rows = dataset_.Open<TaxTableEntry>(Dataset::kTaxTable, {});
  while (rows.Next()) {
    auto entry = std::make_shared<TaxTableEntry>();
    rows.Fill(*entry);
    TaxTable table;
    table.TaxTableEntry()->Add(std::move(entry));
    output_.Write(table, {rows.Path(), rows.Row()});
  }
}

}  // namespace zevo::saft
