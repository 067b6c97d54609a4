// SPDX-License-Identifier: Apache-2.0
// Writes an audit file as an accounting program does, record by record in its order. Usage: export_company [FILE.xml]

#include <zevo/adapters.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

// Every operation returns whether it succeeded; what went wrong is in AuditException.
void Check(const zevo::AuditFile& file, bool succeeded) {
  if (succeeded) return;
  const auto& exception = *file.AuditException();
  std::cerr << exception.Source() << ": " << exception.Description() << " [" << exception.Number() << "]\n";
  std::exit(1);
}

void Fill(zevo::AddressStructure& address, const char* detail, const char* city, const char* postalCode) {
  address.set_AddressDetail(detail);
  address.set_City(city);
  address.set_PostalCode(postalCode);  // the country is PT unless it is set
}

void WriteHeader(zevo::AuditFile& file) {
  zevo::Header header;
  header.set_CompanyID("Viseu 50812");
  header.set_TaxRegistrationNumber("509876544");
  header.set_TaxAccountingBasis(zevo::tabI);
  header.set_CompanyName("Casa da Ribeira – Produtos Regionais, Lda.");
  header.set_BusinessName("Casa da Ribeira");
  Fill(*header.CompanyAddress(), "Rua do Arco, 14", "Viseu", "3500-084");
  header.set_FiscalYear("2012");
  header.set_StartDate("2012-01-01");
  header.set_EndDate("2012-12-31");
  header.set_TaxEntity("Sede");
  header.set_SoftwareCertificateNumber("0");
  header.set_ProductID("Contas/Exemplo");
  header.set_ProductVersion("1.0");
  Check(file, file.CreateHeader(header));
}

// An account stands with those that integrate it, which are the beginnings of its number.
void WriteAccount(zevo::AuditFile& file, const char* id, const char* description) {
  zevo::GeneralLedger account;
  account.set_AccountID(id);
  account.set_AccountDescription(description);
  Check(file, file.CreateGeneralLedger(account));
}

void WriteMasterFiles(zevo::AuditFile& file) {
  WriteAccount(file, "21", "Clientes");
  WriteAccount(file, "21111", "Clientes gerais");
  WriteAccount(file, "24", "Estado e outros entes públicos");
  WriteAccount(file, "2433", "IVA liquidado");
  WriteAccount(file, "71", "Vendas");
  WriteAccount(file, "711", "Mercadorias");
  zevo::Customer customer;
  customer.set_CustomerID("C001");
  customer.set_AccountID("21111");
  customer.set_CustomerTaxID("501234560");
  customer.set_CompanyName("Mercearia São Brás");
  Fill(*customer.BillingAddress(), "Largo da Sé, 3", "Évora", "7000-863");
  Check(file, file.CreateCustomer(customer));
  zevo::Product product;
  product.set_ProductType(zevo::ptP);
  product.set_ProductCode("AZ-075");
  product.set_ProductDescription("Azeite virgem extra 0,75 l");
  product.set_ProductNumberCode("AZ-075");
  Check(file, file.CreateProduct(product));
  zevo::TaxTableEntry rate;
  rate.set_TaxCountryRegion("PT");
  rate.set_TaxCode("NOR");
  rate.set_Description("Taxa normal do continente");
  rate.set_TaxPercentage(23);
  Check(file, file.CreateTaxTableEntry(rate));
}

// A line carries a debit or a credit; the other stays 0.
void AddLine(zevo::Transaction& transaction, const char* account, zevo::Amount debit, zevo::Amount credit) {
  auto line = std::make_shared<zevo::TransactionLine>();
  line->set_RecordID(std::to_string(transaction.Line()->Count() + 1));
  line->set_AccountID(account);
  line->set_SystemEntryDate("2012-03-15T10:20:00");
  line->set_Description("Fatura FT A/1");
  line->set_DebitAmount(debit);
  line->set_CreditAmount(credit);
  transaction.Line()->Add(line);
}

void WriteLedgerEntries(zevo::AuditFile& file) {
  zevo::GeneralLedgerEntries totals;  // CreateTransaction adds to them, UpdateGeneralLedgerEntries writes them
  Check(file, file.CreateGeneralLedgerEntries(totals));
  zevo::Journal journal;
  journal.set_JournalID("VENDAS");
  journal.set_Description("Diário de vendas");
  Check(file, file.CreateJournal(journal));
  zevo::Transaction transaction;
  transaction.set_TransactionID("2012-03-15 VENDAS 1");
  transaction.set_Period("3");
  transaction.set_TransactionDate("2012-03-15");
  transaction.set_Description("Fatura FT A/1");
  transaction.set_DocArchivalNumber("1");
  transaction.set_TransactionType(zevo::ttN);
  transaction.set_GLPostingDate("2012-03-15T10:20:00");
  AddLine(transaction, "21111", zevo::Amount::FromText("73.80"), 0);
  AddLine(transaction, "711", 0, 60);
  AddLine(transaction, "2433", 0, zevo::Amount::FromText("13.80"));
  Check(file, file.CreateTransaction(transaction, &journal, &totals));
  Check(file, file.UpdateGeneralLedgerEntries(totals));
}

void WriteInvoices(zevo::AuditFile& file) {
  zevo::SalesInvoices totals;
  Check(file, file.CreateSalesInvoices(totals));
  zevo::Invoice invoice;
  invoice.set_InvoiceNo("FT A/1");
  invoice.set_InvoiceStatus(zevo::isN);
  invoice.set_Hash("0");
  invoice.set_InvoiceDate("2012-03-15");
  invoice.set_InvoiceType(zevo::itFT);
  invoice.set_SystemEntryDate("2012-03-15T10:20:00");
  invoice.set_TransactionID("2012-03-15 VENDAS 1");
  invoice.set_CustomerID("C001");
  auto line = std::make_shared<zevo::InvoiceLine>();
  line->set_LineNumber(1);
  line->set_ProductCode("AZ-075");
  line->set_ProductDescription("Azeite virgem extra 0,75 l");
  line->set_Quantity(12);
  line->set_UnitOfMeasure("UN");
  line->set_UnitPrice(5);
  line->set_TaxPointDate("2012-03-15");
  line->set_Description("Azeite virgem extra 0,75 l");
  line->set_CreditAmount(60);
  auto tax = std::make_shared<zevo::Tax>();
  tax->set_TaxCountryRegion("PT");
  tax->set_TaxCode("NOR");
  tax->set_TaxPercentage(23);
  line->set_Tax(tax);
  invoice.Line()->Add(line);
  invoice.DocumentTotals()->set_TaxPayable(zevo::Amount::FromText("13.80"));
  invoice.DocumentTotals()->set_NetTotal(60);
  invoice.DocumentTotals()->set_GrossTotal(zevo::Amount::FromText("73.80"));
  Check(file, file.CreateInvoice(invoice, &totals));
  Check(file, file.UpdateSalesInvoices(totals));
}

int main(int argc, char** argv) {
  zevo::AuditFile file;
  file.set_AuditFileName(argc > 1 ? argv[1] : "company.xml");
  Check(file, file.CreateAuditFile());
  WriteHeader(file);
  WriteMasterFiles(file);
  WriteLedgerEntries(file);
  WriteInvoices(file);
  Check(file, file.UpdateAuditFile());
  file.CloseAuditFile();
  Check(file, file.ValidateAuditFile());
  std::cout << file.AuditFileName() << " is valid.\n";
}
