// SPDX-License-Identifier: Apache-2.0
// Any bytes as the schema: files are validated against it, and it tells how long texts may be.

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"

namespace zevo {

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static fuzz::FileInMemory schema;
  static fuzz::FileInMemory file;
  static const bool ready = [] {
    file.Replace(
        "<?xml version=\"1.0\" encoding=\"windows-1252\"?>"
        "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\"><Header><CompanyName>\xC9vora &amp; Filhos"
        "</CompanyName></Header><MasterFiles><Customer><CustomerID>C1</CustomerID></Customer></MasterFiles></"
        "AuditFile>");
    return true;
  }();
  fuzz::Expect(ready, "no file");
  schema.Replace({reinterpret_cast<const char*>(data), size});

  Options().set_SchemaLocation(schema.Path());
  Options().set_ValidateOnAssignment(true);
  AuditFile audit;
  audit.set_AuditFileName(file.Path());
  fuzz::Expect(audit.ValidateAuditFile() == !audit.AuditException(), "a verdict without a reason");
  try {
    Customer customer;
    customer.set_CompanyName("A name that is longer than what the schema may allow");
    customer.BillingAddress()->set_City(
        "Vila Nova de Foz C\xC3\xB4"
        "a");
    Header header;
    header.set_ProductID("Gestor/Oficina");
  } catch (const Error&) {
    // A schema that cannot be read.
  }
  return 0;
}

}  // namespace zevo
