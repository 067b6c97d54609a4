// SPDX-License-Identifier: Apache-2.0
// A streamed document with every kind of record and everything that a record can hold, byte for byte.

#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <memory>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using testing::ReadBytes;
using testing::TemporaryFolder;
using testing::UseSchema;

constexpr const char* kExpected =
    "<?xml version=\"1.0\" encoding=\"windows-1252\"?>"
    "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">"
    "<Header><AuditFileVersion>1.01_01</AuditFileVersion><CompanyID>Porto 12345</CompanyID>"
    "<TaxRegistrationNumber>501234560</TaxRegistrationNumber><TaxAccountingBasis>I</TaxAccountingBasis>"
    "<CompanyName>S\xE3o Jo\xE3o &amp; Irm\xE3os &lt;&quot;SJI&quot;&gt;, Lda. \x96 5 \x80 &#937;</CompanyName>"
    "<BusinessName>S\xE3o Jo\xE3o</BusinessName><CompanyAddress><BuildingNumber>12</BuildingNumber>"
    "<StreetName>Rua Gaia</StreetName><AddressDetail>Rua Gaia, 12</AddressDetail><City>Gaia</City>"
    "<PostalCode>4400-123</PostalCode><Region>Norte</Region><Country>PT</Country></CompanyAddress>"
    "<FiscalYear>2012</FiscalYear><StartDate>2012-01-01</StartDate><EndDate>2012-12-31</EndDate>"
    "<CurrencyCode>EUR</CurrencyCode><DateCreated>2013-01-15</DateCreated><TaxEntity>Global</TaxEntity>"
    "<ProductCompanyTaxID>500000000</ProductCompanyTaxID><SoftwareCertificateNumber>0</SoftwareCertificateNumber>"
    "<ProductID>Contas/Exemplo</ProductID><ProductVersion>1.0</ProductVersion>"
    "<HeaderComment>  ano inteiro </HeaderComment><Telephone>223000000</Telephone><Fax>223000001</Fax>"
    "<Email>a@sji.example</Email><Website>sji.example</Website></Header>"
    "<MasterFiles>"
    "<GeneralLedger><AccountID>2111</AccountID><AccountDescription>Clientes</AccountDescription>"
    "<OpeningDebitBalance>0.5</OpeningDebitBalance><OpeningCreditBalance>-1234.5678</OpeningCreditBalance>"
    "</GeneralLedger>"
    "<Customer><CustomerID>C1</CustomerID><AccountID>2111</AccountID><CustomerTaxID>501234560</CustomerTaxID>"
    "<CompanyName>Empresa C1</CompanyName><Contact>In\xEAs</Contact><BillingAddress>"
    "<BuildingNumber>12</BuildingNumber><StreetName>Rua \xC9vora</StreetName>"
    "<AddressDetail>Rua \xC9vora, 12</AddressDetail><City>\xC9vora</City><PostalCode>4400-123</PostalCode>"
    "<Region>Norte</Region><Country>PT</Country></BillingAddress><ShipToAddress><BuildingNumber>12</BuildingNumber>"
    "<StreetName>Rua Faro</StreetName><AddressDetail>Rua Faro, 12</AddressDetail><City>Faro</City>"
    "<PostalCode>4400-123</PostalCode><Region>Norte</Region><Country>PT</Country></ShipToAddress>"
    "<Telephone>1</Telephone><Fax>2</Fax><Email>3</Email><Website>4</Website>"
    "<SelfBillingIndicator>0</SelfBillingIndicator></Customer>"
    "<Supplier><SupplierID>F1</SupplierID><AccountID>2111</AccountID><SupplierTaxID>501234560</SupplierTaxID>"
    "<CompanyName>Empresa F1</CompanyName><Contact>In\xEAs</Contact><BillingAddress>"
    "<BuildingNumber>12</BuildingNumber><StreetName>Rua \xC9vora</StreetName>"
    "<AddressDetail>Rua \xC9vora, 12</AddressDetail><City>\xC9vora</City><PostalCode>4400-123</PostalCode>"
    "<Region>Norte</Region><Country>PT</Country></BillingAddress><ShipFromAddress>"
    "<BuildingNumber>12</BuildingNumber><StreetName>Rua Beja</StreetName>"
    "<AddressDetail>Rua Beja, 12</AddressDetail><City>Beja</City><PostalCode>4400-123</PostalCode>"
    "<Region>Norte</Region><Country>PT</Country></ShipFromAddress><Telephone>1</Telephone><Fax>2</Fax>"
    "<Email>3</Email><Website>4</Website><SelfBillingIndicator>0</SelfBillingIndicator></Supplier>"
    "<Product><ProductType>S</ProductType><ProductCode>P1</ProductCode><ProductGroup>Geral</ProductGroup>"
    "<ProductDescription>Repara\xE7\xE3o</ProductDescription><ProductNumberCode>560</ProductNumberCode></Product>"
    "<TaxTable>"
    "<TaxTableEntry><TaxType>IVA</TaxType><TaxCountryRegion>PT</TaxCountryRegion><TaxCode>NOR</TaxCode>"
    "<Description>Normal</Description><TaxExpirationDate>2012-12-31</TaxExpirationDate>"
    "<TaxPercentage>23</TaxPercentage></TaxTableEntry>"
    "<TaxTableEntry><TaxType>IVA</TaxType><TaxCountryRegion>PT-AC</TaxCountryRegion><TaxCode>OUT</TaxCode>"
    "<Description>Fixa</Description><TaxAmount>2.5</TaxAmount></TaxTableEntry></TaxTable></MasterFiles>"
    "<GeneralLedgerEntries><NumberOfEntries>1</NumberOfEntries><TotalDebit>.05</TotalDebit>"
    "<TotalCredit>.05</TotalCredit>"
    "<Journal><JournalID>VENDAS</JournalID><Description>Di\xE1rio VENDAS</Description>"
    "<Transaction><TransactionID>2012-03-15 VENDAS 1</TransactionID><Period>3</Period>"
    "<TransactionDate>2012-03-15</TransactionDate><SourceID>maria</SourceID><Description>Venda</Description>"
    "<DocArchivalNumber>1</DocArchivalNumber><TransactionType>R</TransactionType>"
    "<GLPostingDate>2012-03-15T10:20:30</GLPostingDate><CustomerID>C1</CustomerID><SupplierID>F1</SupplierID>"
    "<Line><RecordID>1</RecordID><AccountID>2111</AccountID><SourceDocumentID>FT A/1</SourceDocumentID>"
    "<SystemEntryDate>2012-03-15T10:20:30</SystemEntryDate><Description>Venda</Description>"
    "<DebitAmount>0.05</DebitAmount></Line>"
    "<Line><RecordID>2</RecordID><AccountID>2111</AccountID><SourceDocumentID>FT A/1</SourceDocumentID>"
    "<SystemEntryDate>2012-03-15T10:20:30</SystemEntryDate><Description>Venda</Description>"
    "<CreditAmount>0.05</CreditAmount></Line></Transaction></Journal>"
    "<Journal><JournalID>CAIXA</JournalID><Description>Di\xE1rio CAIXA</Description></Journal>"
    "</GeneralLedgerEntries>"
    "<SourceDocuments><SalesInvoices><NumberOfEntries>1</NumberOfEntries><TotalDebit>1234.00</TotalDebit>"
    "<TotalCredit>.00</TotalCredit>"
    "<Invoice><InvoiceNo>FT A/1</InvoiceNo><InvoiceStatus>A</InvoiceStatus><Hash>h4sh</Hash>"
    "<HashControl>1</HashControl><Period>3</Period><InvoiceDate>2012-03-15</InvoiceDate>"
    "<InvoiceType>NC</InvoiceType><SelfBillingIndicator>1</SelfBillingIndicator>"
    "<SystemEntryDate>2012-03-15T10:20:30</SystemEntryDate><TransactionID>2012-03-15 VENDAS 1</TransactionID>"
    "<CustomerID>C1</CustomerID>"
    "<ShipTo><DeliveryID>G1</DeliveryID><DeliveryDate>2012-03-15</DeliveryDate><Address>"
    "<BuildingNumber>12</BuildingNumber><StreetName>Rua Lagos</StreetName>"
    "<AddressDetail>Rua Lagos, 12</AddressDetail><City>Lagos</City><PostalCode>4400-123</PostalCode>"
    "<Region>Norte</Region><Country>PT</Country></Address></ShipTo>"
    "<ShipFrom><DeliveryID>G1</DeliveryID><DeliveryDate>2012-03-15</DeliveryDate><Address>"
    "<BuildingNumber>12</BuildingNumber><StreetName>Rua Tomar</StreetName>"
    "<AddressDetail>Rua Tomar, 12</AddressDetail><City>Tomar</City><PostalCode>4400-123</PostalCode>"
    "<Region>Norte</Region><Country>PT</Country></Address></ShipFrom>"
    "<Line><LineNumber>1</LineNumber><OrderReferences><OriginatingON>Enc. 7</OriginatingON>"
    "<OrderDate>2012-03-01</OrderDate></OrderReferences><ProductCode>P1</ProductCode>"
    "<ProductDescription>Repara\xE7\xE3o</ProductDescription><Quantity>1.5</Quantity>"
    "<UnitOfMeasure>h</UnitOfMeasure><UnitPrice>10.1234</UnitPrice><TaxPointDate>2012-03-15</TaxPointDate>"
    "<References><CreditNote><Reference>FT A/0</Reference><Reason>troca</Reason></CreditNote></References>"
    "<Description>Repara\xE7\xE3o</Description><CreditAmount>15.1851</CreditAmount><Tax><TaxType>IVA</TaxType>"
    "<TaxCountryRegion>PT</TaxCountryRegion><TaxCode>NOR</TaxCode><TaxPercentage>23</TaxPercentage></Tax>"
    "<TaxExemptionReason>nenhum</TaxExemptionReason><SettlementAmount>0.1</SettlementAmount></Line>"
    "<DocumentTotals><TaxPayable>3.49</TaxPayable><NetTotal>15.19</NetTotal><GrossTotal>18.68</GrossTotal>"
    "<Currency><CurrencyCode>USD</CurrencyCode><CurrencyCreditAmount>25</CurrencyCreditAmount></Currency>"
    "<Settlement><SettlementDiscount>3%</SettlementDiscount><SettlementAmount>0.5</SettlementAmount>"
    "<SettlementDate>2012-04-01</SettlementDate><PaymentMechanism>CC</PaymentMechanism></Settlement>"
    "</DocumentTotals></Invoice></SalesInvoices></SourceDocuments></AuditFile>";

void Fill(AddressStructure& address, const std::string& place) {
  address.set_BuildingNumber("12");
  address.set_StreetName("Rua " + place);
  address.set_AddressDetail("Rua " + place + ", 12");
  address.set_City(place);
  address.set_PostalCode("4400-123");
  address.set_Region("Norte");
  address.set_Country("PT");
}

std::shared_ptr<AddressStructure> Address(const std::string& place) {
  auto address = std::make_shared<AddressStructure>();
  Fill(*address, place);
  return address;
}

std::unique_ptr<Header> FullHeader() {
  auto header = std::make_unique<Header>();
  header->set_CompanyID("Porto 12345");
  header->set_TaxRegistrationNumber("501234560");
  header->set_TaxAccountingBasis(tabI);
  header->set_CompanyName("São João & Irmãos <\"SJI\">, Lda. – 5 € Ω");
  header->set_BusinessName("São João");
  Fill(*header->CompanyAddress(), "Gaia");
  header->set_FiscalYear("2012");
  header->set_StartDate("2012-01-01");
  header->set_EndDate("2012-12-31");
  header->set_CurrencyCode("EUR");
  header->set_DateCreated("2013-01-15");
  header->set_TaxEntity("Global");
  header->set_SoftwareCertificateNumber("0");
  header->set_ProductID("Contas/Exemplo");
  header->set_ProductVersion("1.0");
  header->set_HeaderComment("  ano inteiro ");
  header->set_Telephone("223000000");
  header->set_Fax("223000001");
  header->set_Email("a@sji.example");
  header->set_Website("sji.example");
  return header;
}

std::unique_ptr<GeneralLedger> FullAccount() {
  auto account = std::make_unique<GeneralLedger>();
  account->set_AccountID("2111");
  account->set_AccountDescription("Clientes");
  account->set_OpeningDebitBalance(Amount::FromText("0.5"));
  account->set_OpeningCreditBalance(Amount::FromText("-1234.5678"));
  return account;
}

template <class Party>
void FillParty(Party& party, const std::string& id) {
  party.set_AccountID("2111");
  party.set_CompanyName("Empresa " + id);
  party.set_Contact("Inês");
  Fill(*party.BillingAddress(), "Évora");
  party.set_Telephone("1");
  party.set_Fax("2");
  party.set_Email("3");
  party.set_Website("4");
}

std::unique_ptr<Customer> FullCustomer() {
  auto customer = std::make_unique<Customer>();
  customer->set_CustomerID("C1");
  customer->set_CustomerTaxID("501234560");
  FillParty(*customer, "C1");
  customer->set_ShipToAddress(Address("Faro"));
  return customer;
}

std::unique_ptr<Supplier> FullSupplier() {
  auto supplier = std::make_unique<Supplier>();
  supplier->set_SupplierID("F1");
  supplier->set_SupplierTaxID("501234560");
  FillParty(*supplier, "F1");
  supplier->set_ShipFromAddress(Address("Beja"));
  return supplier;
}

std::unique_ptr<Product> FullProduct() {
  auto product = std::make_unique<Product>();
  product->set_ProductType(ptS);
  product->set_ProductCode("P1");
  product->set_ProductGroup("Geral");
  product->set_ProductDescription("Reparação");
  product->set_ProductNumberCode("560");
  return product;
}

std::unique_ptr<TaxTable> FullTaxTable() {
  auto table = std::make_unique<TaxTable>();
  auto rate = std::make_shared<TaxTableEntry>();
  rate->set_TaxCountryRegion("PT");
  rate->set_TaxCode("NOR");
  rate->set_Description("Normal");
  rate->set_TaxExpirationDate("31-12-2012");
  rate->set_TaxPercentage(23);
  table->TaxTableEntry()->Add(rate);
  auto amount = std::make_shared<TaxTableEntry>();
  amount->set_TaxCountryRegion("PT-AC");
  amount->set_TaxCode("OUT");
  amount->set_Description("Fixa");
  amount->set_TaxAmount(Amount::FromText("2.5"));
  table->TaxTableEntry()->Add(amount);
  return table;
}

std::unique_ptr<Journal> JournalOf(const std::string& id) {
  auto journal = std::make_unique<Journal>();
  journal->set_JournalID(id);
  journal->set_Description("Diário " + id);
  return journal;
}

std::unique_ptr<Transaction> FullTransaction() {
  auto transaction = std::make_unique<Transaction>();
  transaction->set_TransactionID("2012-03-15 VENDAS 1");
  transaction->set_Period("3");
  transaction->set_TransactionDate("2012-03-15");
  transaction->set_SourceID("maria");
  transaction->set_Description("Venda");
  transaction->set_DocArchivalNumber("1");
  transaction->set_TransactionType(ttR);
  transaction->set_GLPostingDate("2012-03-15T10:20:30");
  transaction->set_CustomerID("C1");
  transaction->set_SupplierID("F1");
  for (const bool debit : {true, false}) {
    auto line = std::make_shared<TransactionLine>();
    line->set_RecordID(debit ? "1" : "2");
    line->set_AccountID("2111");
    line->set_SourceDocumentID("FT A/1");
    line->set_SystemEntryDate("2012-03-15T10:20:30");
    line->set_Description("Venda");
    debit ? line->set_DebitAmount(Amount::FromText("0.05")) : line->set_CreditAmount(Amount::FromText("0.05"));
    transaction->Line()->Add(line);
  }
  return transaction;
}

std::shared_ptr<ShippingPointStructure> ShippingPoint(const std::string& place) {
  auto point = std::make_shared<ShippingPointStructure>();
  point->set_DeliveryID("G1");
  point->set_DeliveryDate("2012-03-15");
  point->set_Address(Address(place));
  return point;
}

std::shared_ptr<InvoiceLine> FullInvoiceLine() {
  auto line = std::make_shared<InvoiceLine>();
  line->set_LineNumber(1);
  line->set_OrderReferences(std::make_shared<OrderReferences>());
  line->OrderReferences()->set_OriginatingOn("Enc. 7");
  line->OrderReferences()->set_OrderDate("2012-03-01");
  line->set_ProductCode("P1");
  line->set_ProductDescription("Reparação");
  line->set_Quantity(Amount::FromText("1.5"));
  line->set_UnitOfMeasure("h");
  line->set_UnitPrice(Amount::FromText("10.1234"));
  line->set_TaxPointDate("2012-03-15");
  line->set_References(std::make_shared<References>());
  auto note = std::make_shared<CreditNote>();
  note->set_Reference("FT A/0");
  note->set_Reason("troca");
  line->References()->CreditNote()->Add(note);
  line->set_Description("Reparação");
  line->set_CreditAmount(Amount::FromText("15.1851"));
  line->set_Tax(std::make_shared<Tax>());
  line->Tax()->set_TaxCountryRegion("PT");
  line->Tax()->set_TaxCode("NOR");
  line->Tax()->set_TaxPercentage(23);
  line->set_TaxExemptionReason("nenhum");
  line->set_SettlementAmount(Amount::FromText("0.1"));
  return line;
}

std::unique_ptr<Invoice> FullInvoice() {
  auto invoice = std::make_unique<Invoice>();
  invoice->set_InvoiceNo("FT A/1");
  invoice->set_InvoiceStatus(isA);
  invoice->set_Hash("h4sh");
  invoice->set_HashControl("1");
  invoice->set_Period("3");
  invoice->set_InvoiceDate("2012-03-15");
  invoice->set_InvoiceType(itNC);
  invoice->set_SelfBillingIndicator(true);
  invoice->set_SystemEntryDate("2012-03-15T10:20:30");
  invoice->set_TransactionID("2012-03-15 VENDAS 1");
  invoice->set_CustomerID("C1");
  invoice->set_ShipTo(ShippingPoint("Lagos"));
  invoice->set_ShipFrom(ShippingPoint("Tomar"));
  invoice->Line()->Add(FullInvoiceLine());
  DocumentTotals& totals = *invoice->DocumentTotals();
  totals.set_TaxPayable(Amount::FromText("3.49"));
  totals.set_NetTotal(Amount::FromText("15.19"));
  totals.set_GrossTotal(Amount::FromText("18.68"));
  totals.set_CurrencyValue(std::make_shared<CurrencyStructure>());
  totals.CurrencyValue()->set_CurrencyCode("USD");
  totals.CurrencyValue()->set_CurrencyCreditAmount(Amount::FromText("25"));
  totals.set_Settlement(std::make_shared<Settlement>());
  totals.Settlement()->set_SettlementDiscount("3%");
  totals.Settlement()->set_SettlementAmount(Amount::FromText("0.5"));
  totals.Settlement()->set_SettlementDate("2012-04-01");
  totals.Settlement()->set_PaymentMechanism(pmCC);
  return invoice;
}

TEST(StreamedDocumentTest, EveryKindOfRecordIsWrittenToTheLetter) {
  const UseSchema schema;
  const TemporaryFolder folder;
  GeneralLedgerEntries entries;
  entries.set_NumberOfEntries(1);
  entries.set_TotalDebit(Amount::FromText("0.05"));
  entries.set_TotalCredit(Amount::FromText("0.05"));
  SalesInvoices invoices;
  invoices.set_NumberOfEntries(1);
  invoices.set_TotalDebit(1234);
  AuditFileStreamWriter file;
  file.set_AuditFileName(folder.Path("audit.xml"));
  ASSERT_TRUE(file.CreateAuditFile());
  EXPECT_TRUE(file.CreateHeader(*FullHeader()));
  EXPECT_TRUE(file.CreateGeneralLedger(*FullAccount()));
  EXPECT_TRUE(file.CreateCustomer(*FullCustomer()));
  EXPECT_TRUE(file.CreateSupplier(*FullSupplier()));
  EXPECT_TRUE(file.CreateProduct(*FullProduct()));
  EXPECT_TRUE(file.CreateTaxTable(*FullTaxTable()));
  EXPECT_TRUE(file.BeginGeneralLedgerEntries(entries));
  EXPECT_TRUE(file.BeginJournal(*JournalOf("VENDAS")));
  EXPECT_TRUE(file.CreateTransaction(*FullTransaction()));
  EXPECT_TRUE(file.EndJournal());
  EXPECT_TRUE(file.BeginJournal(*JournalOf("CAIXA")));
  EXPECT_TRUE(file.EndJournal());
  EXPECT_TRUE(file.EndGeneralLedgerEntries());
  EXPECT_TRUE(file.BeginSalesInvoices(invoices));
  EXPECT_TRUE(file.CreateInvoice(*FullInvoice()));
  EXPECT_TRUE(file.EndSalesInvoices());
  EXPECT_TRUE(file.CloseAuditFile());
  EXPECT_EQ(ReadBytes(folder.Path("audit.xml")), kExpected);
  AuditFile check;
  check.set_AuditFileName(folder.Path("audit.xml"));
  EXPECT_TRUE(check.ValidateAuditFile()) << check.AuditException()->Description();
}

}  // namespace
}  // namespace zevo
