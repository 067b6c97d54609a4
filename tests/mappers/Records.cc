// SPDX-License-Identifier: Apache-2.0
#include "tests/mappers/Records.h"

#include <string>

namespace zevo::testing {
namespace {

// What customers and suppliers have alike.
template <class Party>
void FillParty(Party& party) {
  party.set_AccountID("211");
  party.set_CompanyName("Padaria");
  party.set_Contact("Ana");
  FillAddress(*party.BillingAddress(), "Faro");
  party.set_Telephone("21");
  party.set_Fax("22");
  party.set_Email("a@b");
  party.set_Website("www");
  party.set_SelfBillingIndicator(true);
}

}  // namespace

void FillAddress(AddressStructure& address, std::string_view city) {
  address.set_BuildingNumber("12");
  address.set_StreetName("Rua A");
  address.set_AddressDetail("Rua A, 12");
  address.set_City(city);
  address.set_PostalCode("1000-001");
  address.set_Region("Lisboa");
  address.set_Country("ES");
}

std::shared_ptr<AddressStructure> FullAddress(std::string_view city) {
  auto address = std::make_shared<AddressStructure>();
  FillAddress(*address, city);
  return address;
}

std::shared_ptr<Header> FullHeader() {
  auto header = std::make_shared<Header>();
  header->set_CompanyID("Lisboa 1");
  header->set_TaxRegistrationNumber("501234567");
  header->set_TaxAccountingBasis(tabI);
  header->set_CompanyName("A & B");
  header->set_BusinessName("AB");
  FillAddress(*header->CompanyAddress(), "Lisboa");
  header->set_FiscalYear("2008");
  header->set_StartDate("2008-01-01");
  header->set_EndDate("2008-12-31");
  header->set_CurrencyCode("USD");
  header->set_DateCreated("2009-01-15");
  header->set_TaxEntity("Global");
  header->set_SoftwareCertificateNumber("77");
  header->set_ProductID("P/M");
  header->set_ProductVersion("7.2");
  header->set_HeaderComment("comment");
  header->set_Telephone("21");
  header->set_Fax("22");
  header->set_Email("a@b");
  header->set_Website("www");
  return header;
}

std::shared_ptr<GeneralLedger> FullGeneralLedger() {
  auto account = std::make_shared<GeneralLedger>();
  account->set_AccountID("11");
  account->set_AccountDescription("Caixa");
  account->set_OpeningDebitBalance(Amount::FromText("1234.5"));
  account->set_OpeningCreditBalance(Amount::FromText("0.0001"));
  return account;
}

std::shared_ptr<Customer> FullCustomer(std::string_view id) {
  auto customer = std::make_shared<Customer>();
  FillParty(*customer);
  customer->set_CustomerID(id);
  customer->set_CustomerTaxID("508888888");
  customer->set_ShipToAddress(FullAddress("Beja"));
  return customer;
}

std::shared_ptr<Supplier> FullSupplier(std::string_view id) {
  auto supplier = std::make_shared<Supplier>();
  FillParty(*supplier);
  supplier->set_SupplierID(id);
  supplier->set_SupplierTaxID("508888888");
  supplier->set_ShipFromAddress(FullAddress("Beja"));
  return supplier;
}

std::shared_ptr<Product> FullProduct() {
  auto product = std::make_shared<Product>();
  product->set_ProductType(ptS);
  product->set_ProductCode("P1");
  product->set_ProductGroup("G");
  product->set_ProductDescription("Pao");
  product->set_ProductNumberCode("560");
  return product;
}

std::shared_ptr<TaxTableEntry> FullTaxTableEntry() {
  auto entry = std::make_shared<TaxTableEntry>();
  entry->set_TaxCountryRegion("PT-MA");
  entry->set_TaxCode("NOR");
  entry->set_Description("Normal");
  entry->set_TaxExpirationDate("2008-06-30");
  entry->set_TaxPercentage(Amount::FromText("14.5"));
  entry->set_TaxAmount(Amount::FromText("3.25"));
  return entry;
}

std::shared_ptr<Journal> JournalOf(std::string_view id) {
  auto journal = std::make_shared<Journal>();
  journal->set_JournalID(id);
  journal->set_Description("Diario " + std::string(id));
  return journal;
}

std::shared_ptr<TransactionLine> FullTransactionLine(std::string_view id) {
  auto line = std::make_shared<TransactionLine>();
  line->set_RecordID(id);
  line->set_AccountID("11");
  line->set_SourceDocumentID("FT 1");
  line->set_SystemEntryDate("2008-03-01T10:00:00");
  line->set_Description("linha");
  line->set_DebitAmount(Amount::FromText("10.5"));
  line->set_CreditAmount(Amount::FromText("7.25"));
  return line;
}

std::shared_ptr<Transaction> FullTransaction() {
  auto transaction = std::make_shared<Transaction>();
  transaction->set_TransactionID("2008-03-01 J1 1");
  transaction->set_Period("3");
  transaction->set_TransactionDate("2008-03-01");
  transaction->set_SourceID("ana");
  transaction->set_Description("venda");
  transaction->set_DocArchivalNumber("1");
  transaction->set_TransactionType(ttN);
  transaction->set_GLPostingDate("2008-03-02T09:30:00");
  transaction->set_CustomerID("C1");
  transaction->set_SupplierID("S1");
  transaction->Line()->Add(FullTransactionLine("1"));
  return transaction;
}

std::shared_ptr<ShippingPointStructure> FullShippingPoint(std::string_view id) {
  auto point = std::make_shared<ShippingPointStructure>();
  point->set_DeliveryID(id);
  point->set_DeliveryDate("2008-03-02");
  point->set_Address(FullAddress("Faro"));
  return point;
}

std::shared_ptr<InvoiceLine> FullInvoiceLine(int32_t number) {
  auto line = std::make_shared<InvoiceLine>();
  line->set_LineNumber(number);
  line->set_OrderReferences(std::make_shared<OrderReferences>());
  line->OrderReferences()->set_OriginatingOn("E1");
  line->OrderReferences()->set_OrderDate("2008-02-28");
  line->set_ProductCode("P1");
  line->set_ProductDescription("Pao");
  line->set_Quantity(Amount::FromText("2.5"));
  line->set_UnitOfMeasure("kg");
  line->set_UnitPrice(Amount::FromText("1.25"));
  line->set_TaxPointDate("2008-03-01");
  line->set_References(std::make_shared<References>());
  auto note = std::make_shared<CreditNote>();
  note->set_Reference("FT 1");
  note->set_Reason("erro");
  line->References()->CreditNote()->Add(note);
  line->set_Description("Pao de trigo");
  line->set_DebitAmount(Amount::FromText("3.125"));
  line->set_CreditAmount(Amount::FromText("4.5"));
  line->set_Tax(std::make_shared<Tax>());
  line->Tax()->set_TaxCountryRegion("PT");
  line->Tax()->set_TaxCode("RED");
  line->Tax()->set_TaxPercentage(5.5F);
  line->Tax()->set_TaxAmount(0.25F);
  line->set_TaxExemptionReason("M1");
  line->set_SettlementAmount(Amount::FromText("0.5"));
  return line;
}

std::shared_ptr<Invoice> FullInvoice() {
  auto invoice = std::make_shared<Invoice>();
  invoice->set_InvoiceNo("FT A/1");
  invoice->set_InvoiceStatus(isN);
  invoice->set_Hash("h");
  invoice->set_HashControl("1");
  invoice->set_Period("3");
  invoice->set_InvoiceDate("2008-03-01");
  invoice->set_InvoiceType(itFT);
  invoice->set_SelfBillingIndicator(true);
  invoice->set_SystemEntryDate("2008-03-01T10:00:00");
  invoice->set_TransactionID("T1");
  invoice->set_CustomerID("C1");
  invoice->set_ShipTo(FullShippingPoint("D1"));
  invoice->set_ShipFrom(FullShippingPoint("D2"));
  invoice->Line()->Add(FullInvoiceLine(1));
  DocumentTotals& totals = *invoice->DocumentTotals();
  totals.set_TaxPayable(Amount::FromText("0.17"));
  totals.set_NetTotal(Amount::FromText("3.125"));
  totals.set_GrossTotal(Amount::FromText("3.295"));
  totals.set_CurrencyValue(std::make_shared<CurrencyStructure>());
  totals.CurrencyValue()->set_CurrencyCode("USD");
  totals.CurrencyValue()->set_CurrencyDebitAmount(Amount::FromText("4.5"));
  totals.CurrencyValue()->set_CurrencyCreditAmount(Amount::FromText("4.75"));
  totals.set_Settlement(std::make_shared<Settlement>());
  totals.Settlement()->set_SettlementDiscount("5%");
  totals.Settlement()->set_SettlementAmount(Amount::FromText("0.15"));
  totals.Settlement()->set_SettlementDate("2008-04-01");
  totals.Settlement()->set_PaymentMechanism(pmTB);
  return invoice;
}

}  // namespace zevo::testing
