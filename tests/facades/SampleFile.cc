// SPDX-License-Identifier: Apache-2.0
#include "tests/facades/SampleFile.h"

#include <gtest/gtest.h>

#include "tests/facades/Expectations.h"

namespace zevo::testing {
namespace {

void FillAddress(AddressStructure& address) {
  address.set_AddressDetail("Rua da Conceição, 12");
  address.set_City("Évora");
  address.set_PostalCode("7000-001");
}

std::shared_ptr<TransactionLine> SampleTransactionLine(std::string_view id, std::string_view account, Amount debit,
                                                       Amount credit) {
  auto line = std::make_shared<TransactionLine>();
  line->set_RecordID(id);
  line->set_AccountID(account);
  line->set_SystemEntryDate("2010-03-01T10:00:00");
  line->set_Description("Movimento");
  line->set_DebitAmount(debit);
  line->set_CreditAmount(credit);
  return line;
}

std::string CustomerName(int number) { return "C" + std::to_string(number); }

}  // namespace

std::shared_ptr<Header> SampleHeader() {
  auto header = std::make_shared<Header>();
  header->set_CompanyID("12345");
  header->set_TaxRegistrationNumber("500000001");
  header->set_TaxAccountingBasis(tabI);
  header->set_CompanyName("Empresa & Irmãos, S.A.");
  header->set_BusinessName("Irmãos");
  FillAddress(*header->CompanyAddress());
  header->set_FiscalYear("2010");
  header->set_StartDate("2010-01-01");
  header->set_EndDate("2010-12-31");
  header->set_DateCreated("2011-01-15");
  header->set_TaxEntity("Global");
  header->set_SoftwareCertificateNumber("0");
  header->set_ProductID("Gestor/Oficina");
  header->set_ProductVersion("1.0");
  return header;
}

std::shared_ptr<Customer> SampleCustomer(std::string_view id) {
  auto customer = std::make_shared<Customer>();
  customer->set_CustomerID(id);
  customer->set_AccountID("21111");
  customer->set_CustomerTaxID("500000002");
  customer->set_CompanyName("Cliente");
  FillAddress(*customer->BillingAddress());
  return customer;
}

std::shared_ptr<Product> SampleProduct(std::string_view code) {
  auto product = std::make_shared<Product>();
  product->set_ProductType(ptP);
  product->set_ProductCode(code);
  product->set_ProductDescription("Parafuso");
  product->set_ProductNumberCode(code);
  return product;
}

std::shared_ptr<Journal> SampleJournal(std::string_view id) {
  auto journal = std::make_shared<Journal>();
  journal->set_JournalID(id);
  journal->set_Description("Diário");
  return journal;
}

std::shared_ptr<Transaction> SampleTransaction(int number, Amount debit, Amount credit) {
  auto transaction = std::make_shared<Transaction>();
  transaction->set_TransactionID("2010-03-01 D1 " + std::to_string(number));
  transaction->set_Period("3");
  transaction->set_TransactionDate("2010-03-01");
  transaction->set_Description("Lançamento");
  transaction->set_DocArchivalNumber(std::to_string(number));
  transaction->set_TransactionType(ttN);
  transaction->set_GLPostingDate("2010-03-01T10:00:00");
  transaction->Line()->Add(SampleTransactionLine("1", "21111", debit, 0));
  transaction->Line()->Add(SampleTransactionLine("2", "711", 0, credit));
  return transaction;
}

std::shared_ptr<InvoiceLine> SampleInvoiceLine(int number, std::string_view product, Amount debit, Amount credit) {
  auto line = std::make_shared<InvoiceLine>();
  line->set_LineNumber(number);
  line->set_ProductCode(product);
  line->set_ProductDescription("Parafuso");
  line->set_Quantity(1);
  line->set_UnitOfMeasure("un");
  line->set_UnitPrice(10);
  line->set_TaxPointDate("2010-03-01");
  line->set_Description("Parafuso");
  line->set_DebitAmount(debit);
  line->set_CreditAmount(credit);
  auto tax = std::make_shared<Tax>();
  tax->set_TaxCountryRegion("PT");
  tax->set_TaxCode("NOR");
  tax->set_TaxPercentage(23);
  line->set_Tax(tax);
  return line;
}

std::shared_ptr<Invoice> SampleInvoice(int number, std::string_view customer, std::string_view product, Amount credit) {
  auto invoice = std::make_shared<Invoice>();
  invoice->set_InvoiceNo("FT A/" + std::to_string(number));
  invoice->set_InvoiceStatus(isN);
  invoice->set_Hash("0");
  invoice->set_InvoiceDate("2010-03-01");
  invoice->set_InvoiceType(itFT);
  invoice->set_SystemEntryDate("2010-03-01T10:00:00");
  invoice->set_CustomerID(customer);
  invoice->Line()->Add(SampleInvoiceLine(1, product, 0, credit));
  invoice->DocumentTotals()->set_NetTotal(credit);
  invoice->DocumentTotals()->set_GrossTotal(credit);
  return invoice;
}

bool WriteSampleRecords(AuditFile& file, const SampleSize& size) {
  bool written = file.CreateHeader(*SampleHeader());

  GeneralLedger account;
  account.set_AccountID("21111");
  account.set_AccountDescription("Clientes");
  written = written && file.CreateGeneralLedger(account);
  for (int i = 1; i <= size.customers; ++i) written = written && file.CreateCustomer(*SampleCustomer(CustomerName(i)));
  Supplier supplier;
  supplier.set_SupplierID("F1");
  supplier.set_AccountID("22111");
  supplier.set_SupplierTaxID("500000003");
  supplier.set_CompanyName("Fornecedor");
  FillAddress(*supplier.BillingAddress());
  written = written && file.CreateSupplier(supplier);
  written = written && file.CreateProduct(*SampleProduct("P1"));
  TaxTable table;
  auto entry = std::make_shared<TaxTableEntry>();
  entry->set_TaxCountryRegion("PT");
  entry->set_TaxCode("NOR");
  entry->set_Description("Taxa normal");
  entry->set_TaxPercentage(23);
  table.TaxTableEntry()->Add(entry);
  written = written && file.CreateTaxTable(table);

  GeneralLedgerEntries entries;
  written = written && file.CreateGeneralLedgerEntries(entries);
  const auto journal = SampleJournal("D1");
  written = written && file.CreateJournal(*journal);
  for (int i = 1; i <= size.transactions; ++i) {
    written = written && file.CreateTransaction(*SampleTransaction(i), journal.get(), &entries);
  }
  written = written && file.UpdateGeneralLedgerEntries(entries);

  SalesInvoices invoices;
  written = written && file.CreateSalesInvoices(invoices);
  for (int i = 1; i <= size.invoices; ++i) {
    written = written && file.CreateInvoice(*SampleInvoice(i, CustomerName(1 + i % size.customers), "P1"), &invoices);
  }
  return written && file.UpdateSalesInvoices(invoices);
}

void SaveSampleFile(const std::string& path, const SampleSize& size) {
  AuditFile file;
  file.set_AuditFileName(path);
  ASSERT_TRUE(file.CreateAuditFile()) << Told(file.AuditException());
  ASSERT_TRUE(WriteSampleRecords(file, size)) << Told(file.AuditException());
  ASSERT_TRUE(file.UpdateAuditFile()) << Told(file.AuditException());
}

int ReadEveryRecord(const std::string& path) {
  AuditFileReader reader;
  reader.set_AuditFileName(path);
  if (!reader.OpenAuditFile()) return -1;
  int count = 0;
  std::shared_ptr<Customer> customer;
  while (reader.ReadCustomer(customer) && customer != nullptr) ++count;
  std::shared_ptr<Transaction> transaction;
  const auto journal = SampleJournal("D1");
  while (reader.ReadTransaction(transaction, *journal) && transaction != nullptr) ++count;
  std::shared_ptr<Invoice> invoice;
  while (reader.ReadInvoice(invoice) && invoice != nullptr) ++count;
  return count;
}

}  // namespace zevo::testing
