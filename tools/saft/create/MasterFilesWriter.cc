// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/MasterFilesWriter.h"

#include <memory>
#include <utility>

#include "tools/saft/dataset/RecordFile.h"
#include "tools/saft/words/CreateWords.h"

namespace zevo::saft {

void MasterFilesWriter::Write() {
  WriteHeader();
  WriteEach<GeneralLedger>(Dataset::kGeneralLedger, EntityKind::kGeneralLedger);
  WriteEach<Customer>(Dataset::kCustomers, EntityKind::kCustomer);
  WriteEach<Supplier>(Dataset::kSuppliers, EntityKind::kSupplier);
  WriteEach<Product>(Dataset::kProducts, EntityKind::kProduct);
  WriteTaxTable();
}

void MasterFilesWriter::WriteHeader() {
  RecordFile rows = dataset_.Open(Dataset::kHeader);
  while (rows.Next()) {
    Header header;
    rows.Fill(header);
    if (index_.header != 0) {
      rows.AddError(Say(words::kSecondHeader));
      continue;
    }
    index_.header = rows.Row();
    if (header.BusinessName().empty()) rows.NoteAbsent("BusinessName");
    output_.Write(header);
  }
  // What is wrong with the file may be why there is none.
  if (index_.header != 0 || dataset_.Faults().CountIn(rows.Number()) > 0) return;
  dataset_.Faults().AddToFile(rows.Number(), Say(rows.Exists() ? words::kNoHeaderRow : words::kNoHeaderFile));
}

template <class T>
void MasterFilesWriter::WriteEach(const char* file, EntityKind kind) {
  RecordFile rows = dataset_.Open(file);
  while (rows.Next()) {
    T record;
    rows.Fill(record);
    if (TakeKey(rows, record, index_.Of(kind))) output_.Write(record);
  }
}

void MasterFilesWriter::WriteTaxTable() {
  RecordFile rows = dataset_.Open(Dataset::kTaxTable);
  while (rows.Next()) {
    auto entry = std::make_shared<TaxTableEntry>();
    rows.Fill(*entry);
    index_.tax_entries.push_back(rows.Row());
    TaxTable table;
    table.TaxTableEntry()->Add(std::move(entry));
    output_.Write(table);
  }
}

}  // namespace zevo::saft
