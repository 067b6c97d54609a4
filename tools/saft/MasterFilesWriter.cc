#include "tools/saft/MasterFilesWriter.h"

#include "tools/saft/KeyIndex.h"
#include "tools/saft/RecordFile.h"

namespace zevo::saft {

void MasterFilesWriter::Write() {
  WriteHeader();
  WriteEach(Dataset::kGeneralLedger, "AccountID", &AuditFile::CreateGeneralLedger);
  WriteEach(Dataset::kCustomers, "CustomerID", &AuditFile::CreateCustomer);
  WriteEach(Dataset::kSuppliers, "SupplierID", &AuditFile::CreateSupplier);
  WriteEach(Dataset::kProducts, "ProductCode", &AuditFile::CreateProduct);
  WriteEach(Dataset::kTaxTable, "", &AuditFile::CreateTaxTableEntry);
}

void MasterFilesWriter::WriteHeader() {
  RecordFile rows = dataset_.Open<Header>(Dataset::kHeader, {});
  if (!rows.Next()) return;
  Header header;
  rows.Fill(header);
  output_.Write(rows.Path(), rows.Row(), &AuditFile::CreateHeader, header);
  if (rows.Next()) rows.Fail("a second header");
}

template <class T>
void MasterFilesWriter::WriteEach(const char* file, std::string_view key, bool (AuditFile::*create)(const T&)) {
  RecordFile rows = dataset_.Open<T>(file, {.key = key});
  KeyIndex keys;
  while (rows.Next()) {
    T record;
    rows.Fill(record);
    if (!key.empty()) keys.Add(rows, record);
    output_.Write(rows.Path(), rows.Row(), create, record);
  }
}

}  // namespace zevo::saft
