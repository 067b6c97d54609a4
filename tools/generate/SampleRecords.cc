// SPDX-License-Identifier: Apache-2.0
#include "tools/generate/SampleRecords.h"

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string_view>

namespace zevo::generate {
namespace {

constexpr std::array<std::string_view, 4> kStreets{"Rua da Alegria, 12, 3.º Esq.", "Avenida São João, 140",
                                                   "Praça D. Inês & D. Pedro, 7", "Travessa do Poço, 3"};
constexpr std::array<std::string_view, 4> kCities{"Vila Nova de Gaia", "Évora", "Lisboa", "Olhão"};
constexpr std::array<std::string_view, 4> kGoods{"Artigo de papelaria", "Caderno \"Atlântico\"", "Lápis de cor – caixa",
                                                 "Café em grão 1 kg"};
// Has the form of a signature, and is none.
constexpr std::string_view kHash =
    "T8mMcvV2kLqZ1Yx0aQpWn4sRe7uJ9bHdGf3oXiCzKtEyLwNvBg5hPrSaUjM6Dq2lZkXcVbNmQwErTyUiOpAsDfGhJkLzXcVbNm1234567890aBcDeF"
    "gHiJkLmNoPqRsTuVwXyZ0123456789abcdefghijklmnopqrstuvwxyaA=";

// A well-mixed number from any other.
uint64_t Mixed(uint64_t number) {
  number += 0x9E3779B97F4A7C15;
  number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9;
  number = (number ^ (number >> 27)) * 0x94D049BB133111EB;
  return number ^ (number >> 31);
}

template <class... Arguments>
std::string Formatted(const char* format, Arguments... arguments) {
  char text[64];
  std::snprintf(text, sizeof text, format, arguments...);
  return text;
}

void Fill(AddressStructure& address, int number) {
  address.set_AddressDetail(kStreets[static_cast<size_t>(number) % kStreets.size()]);
  address.set_City(kCities[static_cast<size_t>(number) % kCities.size()]);
  address.set_PostalCode(Formatted("%04d-%03d", 1000 + number % 9000, number % 1000));
}

std::string CustomerIDAt(int number) { return "C" + std::to_string(number); }
std::string ProductCodeAt(int number) { return "P" + std::to_string(number); }
std::string DescriptionAt(int number) {
  return std::string(kGoods[static_cast<size_t>(number) % kGoods.size()]).append(" ").append(std::to_string(number));
}
// Of a company, with the digit that checks it.
std::string TaxNumber(uint32_t number) {
  std::string text = Formatted("5%07u", number);
  int sum = 0;
  for (int i = 0; i < 8; ++i) sum += (9 - i) * (text[static_cast<size_t>(i)] - '0');
  const int rest = sum % 11;
  return text.append(std::to_string(rest < 2 ? 0 : 11 - rest));
}
std::string JournalIDOf(int month) { return Formatted("V%02d", month + 1); }
std::string InvoiceNoOf(int64_t invoice) { return "FT A/" + std::to_string(invoice + 1); }

void Check(const Facade& file, bool succeeded) {
  if (!succeeded) throw std::runtime_error(file.AuditException()->Description());
}

template <class File>
void WriteMasterFiles(File& file, const SampleRecords& records, SampleRecords::Months months) {
  Check(file, file.CreateHeader(*records.TheHeader(months)));
  for (int i = 0; i < SampleRecords::kAccounts; ++i) Check(file, file.CreateGeneralLedger(*records.Account(i)));
  for (int i = 0; i < SampleRecords::kMasterRecords; ++i) Check(file, file.CreateCustomer(*records.CustomerAt(i)));
  for (int i = 0; i < SampleRecords::kMasterRecords; ++i) Check(file, file.CreateProduct(*records.ProductAt(i)));
  Check(file, file.CreateTaxTable(*records.Taxes()));
}

}  // namespace

uint32_t SampleRecords::Random(int64_t invoice, int purpose, uint32_t bound) const {
  return static_cast<uint32_t>(
      Mixed(Mixed(seed_) ^ Mixed(static_cast<uint64_t>(invoice) * 64 + static_cast<uint64_t>(purpose))) % bound);
}

int SampleRecords::MonthOf(int64_t invoice) const {
  auto month = static_cast<int>(invoice * kMonths / invoices_);
  while (month + 1 < kMonths && FirstOfMonth(month + 1) <= invoice) ++month;
  while (FirstOfMonth(month) > invoice) --month;
  return month;
}

std::string SampleRecords::DateOf(int64_t invoice) const {
  const int month = MonthOf(invoice);
  const int64_t first = FirstOfMonth(month);
  const auto day = static_cast<int>((invoice - first) * 28 / (FirstOfMonth(month + 1) - first));
  return Formatted("2012-%02d-%02d", month + 1, day + 1);
}

std::string SampleRecords::TransactionIDOf(int64_t invoice) const {
  return DateOf(invoice) + " " + JournalIDOf(MonthOf(invoice)) + " " + std::to_string(invoice + 1);
}

std::string SampleRecords::CustomerIDOf(int64_t invoice) const {
  return CustomerIDAt(static_cast<int>(Random(invoice, 0, kMasterRecords)));
}

Amount SampleRecords::Quantity(int64_t invoice, int line) const {
  return Amount(static_cast<int>(1 + Random(invoice, 10 + line, 20)));
}

Amount SampleRecords::UnitPrice(int64_t invoice, int line) const {
  return Amount::FromScaled(100 * (1 + int64_t{Random(invoice, 20 + line, 10'000)}));
}

Amount SampleRecords::LineTotal(int64_t invoice, int line) const {
  return Amount::FromScaled(UnitPrice(invoice, line).Scaled() * (Quantity(invoice, line).Scaled() / 10'000));
}

Amount SampleRecords::NetTotal(int64_t invoice) const {
  Amount total;
  for (int line = 0; line < kLines; ++line) total += LineTotal(invoice, line);
  return total;
}

// With 23 % of tax, in whole cents.
Amount SampleRecords::GrossTotal(int64_t invoice) const {
  const int64_t net = NetTotal(invoice).Scaled();
  return Amount::FromScaled(net + net * 23 / 10'000 * 100);
}

std::unique_ptr<Header> SampleRecords::TheHeader(Months months) const {
  constexpr std::array kLastDays{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  auto header = std::make_unique<Header>();
  header->set_CompanyID("Porto 12345");
  header->set_TaxRegistrationNumber("501234560");
  header->set_TaxAccountingBasis(tabI);
  header->set_CompanyName("Comércio Geral São João, Lda.");
  header->set_BusinessName("São João");
  Fill(*header->CompanyAddress(), 0);
  header->set_FiscalYear("2012");
  header->set_StartDate(Formatted("2012-%02d-01", months.first + 1));
  header->set_EndDate(Formatted("2012-%02d-%02d", months.end, kLastDays[static_cast<size_t>(months.end) - 1]));
  header->set_DateCreated(months.end == kMonths ? "2013-01-15" : Formatted("2012-%02d-15", months.end + 1));
  header->set_TaxEntity("Sede");
  header->set_SoftwareCertificateNumber("9999");
  header->set_ProductID("Contas/Exemplo");
  header->set_ProductVersion("1.0");
  return header;
}

std::unique_ptr<GeneralLedger> SampleRecords::Account(int number) const {
  constexpr std::array<std::array<std::string_view, 2>, kAccounts> kPlan{{{"21", "Clientes"},
                                                                          {"2111", "Clientes gerais"},
                                                                          {"24", "Estado e outros entes públicos"},
                                                                          {"2433", "IVA liquidado"},
                                                                          {"71", "Vendas"},
                                                                          {"711", "Vendas de mercadorias"}}};
  auto account = std::make_unique<GeneralLedger>();
  account->set_AccountID(kPlan[static_cast<size_t>(number)][0]);
  account->set_AccountDescription(kPlan[static_cast<size_t>(number)][1]);
  return account;
}

std::unique_ptr<Customer> SampleRecords::CustomerAt(int number) const {
  auto customer = std::make_unique<Customer>();
  customer->set_CustomerID(CustomerIDAt(number));
  customer->set_AccountID("2111");
  customer->set_CustomerTaxID(TaxNumber(Random(number, 1, 10'000'000)));
  customer->set_CompanyName("Cliente número " + std::to_string(number));
  Fill(*customer->BillingAddress(), number);
  return customer;
}

std::unique_ptr<Product> SampleRecords::ProductAt(int number) const {
  auto product = std::make_unique<Product>();
  product->set_ProductType(ptP);
  product->set_ProductCode(ProductCodeAt(number));
  product->set_ProductDescription(DescriptionAt(number));
  product->set_ProductNumberCode("5601234" + std::to_string(100'000 + number));
  return product;
}

std::unique_ptr<TaxTable> SampleRecords::Taxes() const {
  auto table = std::make_unique<TaxTable>();
  auto rate = std::make_shared<TaxTableEntry>();
  rate->set_TaxCountryRegion("PT");
  rate->set_TaxCode("NOR");
  rate->set_Description("Taxa normal do continente");
  rate->set_TaxPercentage(23);
  table->TaxTableEntry()->Add(rate);
  return table;
}

std::unique_ptr<Journal> SampleRecords::JournalOf(int month) const {
  auto journal = std::make_unique<Journal>();
  journal->set_JournalID(JournalIDOf(month));
  journal->set_Description(Formatted("Diário de vendas, mês %d", month + 1));
  return journal;
}

std::unique_ptr<Transaction> SampleRecords::TransactionAt(int64_t invoice) const {
  const std::string date = DateOf(invoice);
  auto transaction = std::make_unique<Transaction>();
  transaction->set_TransactionID(TransactionIDOf(invoice));
  transaction->set_Period(std::to_string(MonthOf(invoice) + 1));
  transaction->set_TransactionDate(date);
  transaction->set_SourceID("maria");
  transaction->set_Description("Venda a crédito de mercadorias");
  transaction->set_DocArchivalNumber(std::to_string(invoice + 1));
  transaction->set_TransactionType(ttN);
  transaction->set_GLPostingDate(date + "T10:20:30");
  transaction->set_CustomerID(CustomerIDOf(invoice));
  for (const bool credit : {false, true}) {
    auto line = std::make_shared<TransactionLine>();
    line->set_RecordID(credit ? "2" : "1");
    line->set_AccountID(credit ? "711" : "2111");
    line->set_SourceDocumentID(InvoiceNoOf(invoice));
    line->set_SystemEntryDate(date + "T10:20:30");
    line->set_Description("Venda de mercadorias");
    credit ? line->set_CreditAmount(GrossTotal(invoice)) : line->set_DebitAmount(GrossTotal(invoice));
    transaction->Line()->Add(line);
  }
  return transaction;
}

std::unique_ptr<Invoice> SampleRecords::InvoiceAt(int64_t invoice) const {
  const std::string date = DateOf(invoice);
  auto document = std::make_unique<Invoice>();
  document->set_InvoiceNo(InvoiceNoOf(invoice));
  document->set_InvoiceStatus(isN);
  document->set_Hash(kHash);
  document->set_HashControl("1");
  document->set_Period(std::to_string(MonthOf(invoice) + 1));
  document->set_InvoiceDate(date);
  document->set_InvoiceType(itFT);
  document->set_SystemEntryDate(date + "T10:20:30");
  document->set_TransactionID(TransactionIDOf(invoice));
  document->set_CustomerID(CustomerIDOf(invoice));
  for (int number = 0; number < kLines; ++number) {
    const auto product = static_cast<int>(Random(invoice, 30 + number, kMasterRecords));
    auto line = std::make_shared<InvoiceLine>();
    line->set_LineNumber(number + 1);
    line->set_ProductCode(ProductCodeAt(product));
    line->set_ProductDescription(DescriptionAt(product));
    line->set_Quantity(Quantity(invoice, number));
    line->set_UnitOfMeasure("UN");
    line->set_UnitPrice(UnitPrice(invoice, number));
    line->set_TaxPointDate(date);
    line->set_Description(DescriptionAt(product));
    line->set_CreditAmount(LineTotal(invoice, number));
    auto tax = std::make_shared<Tax>();
    tax->set_TaxCountryRegion("PT");
    tax->set_TaxCode("NOR");
    tax->set_TaxPercentage(23);
    line->set_Tax(tax);
    document->Line()->Add(line);
  }
  DocumentTotals& totals = *document->DocumentTotals();
  totals.set_TaxPayable(GrossTotal(invoice) - NetTotal(invoice));
  totals.set_NetTotal(NetTotal(invoice));
  totals.set_GrossTotal(GrossTotal(invoice));
  return document;
}

std::unique_ptr<GeneralLedgerEntries> SampleRecords::EntriesTotals(Months months) const {
  Amount total;
  for (int64_t i = FirstOfMonth(months.first); i < FirstOfMonth(months.end); ++i) total += GrossTotal(i);
  auto totals = std::make_unique<GeneralLedgerEntries>();
  totals->set_NumberOfEntries(static_cast<int32_t>(FirstOfMonth(months.end) - FirstOfMonth(months.first)));
  totals->set_TotalDebit(total);
  totals->set_TotalCredit(total);
  return totals;
}

std::unique_ptr<SalesInvoices> SampleRecords::InvoicesTotals(Months months) const {
  Amount total;
  for (int64_t i = FirstOfMonth(months.first); i < FirstOfMonth(months.end); ++i) total += NetTotal(i);
  auto totals = std::make_unique<SalesInvoices>();
  totals->set_NumberOfEntries(static_cast<int32_t>(FirstOfMonth(months.end) - FirstOfMonth(months.first)));
  totals->set_TotalCredit(total);
  return totals;
}

void WriteTo(AuditFileStreamWriter& file, const SampleRecords& records, SampleRecords::Months months,
             DocumentSigner* signer) {
  Check(file, file.CreateAuditFile());
  WriteMasterFiles(file, records, months);
  Check(file, file.BeginGeneralLedgerEntries(*records.EntriesTotals(months)));
  for (int month = months.first; month < months.end; ++month) {
    Check(file, file.BeginJournal(*records.JournalOf(month)));
    for (int64_t i = records.FirstOfMonth(month); i < records.FirstOfMonth(month + 1); ++i) {
      Check(file, file.CreateTransaction(*records.TransactionAt(i)));
    }
    Check(file, file.EndJournal());
  }
  Check(file, file.EndGeneralLedgerEntries());
  const int64_t first = records.FirstOfMonth(months.first);
  const int64_t end = records.FirstOfMonth(months.end);
  // The section holds an invoice, or is not there.
  if (first < end) Check(file, file.BeginSalesInvoices(*records.InvoicesTotals(months)));
  // A signature goes on from those of the months before.
  for (int64_t i = signer != nullptr ? 0 : first; i < end; ++i) {
    const auto invoice = records.InvoiceAt(i);
    if (signer != nullptr) {
      invoice->set_Hash("");
      signer->Sign(*invoice);
    }
    if (i >= first) Check(file, file.CreateInvoice(*invoice));
  }
  file.CloseAuditFile();
}

void WriteTo(AuditFile& file, const SampleRecords& records) {
  Check(file, file.CreateAuditFile());
  WriteMasterFiles(file, records, {});
  GeneralLedgerEntries entries;
  Check(file, file.CreateGeneralLedgerEntries(entries));
  for (int month = 0; month < SampleRecords::kMonths; ++month) {
    const auto journal = records.JournalOf(month);
    Check(file, file.CreateJournal(*journal));
    for (int64_t i = records.FirstOfMonth(month); i < records.FirstOfMonth(month + 1); ++i) {
      Check(file, file.CreateTransaction(*records.TransactionAt(i), journal.get(), &entries));
    }
  }
  Check(file, file.UpdateGeneralLedgerEntries(entries));
  SalesInvoices invoices;
  Check(file, file.CreateSalesInvoices(invoices));
  for (int64_t i = 0; i < records.Invoices(); ++i) Check(file, file.CreateInvoice(*records.InvoiceAt(i), &invoices));
  Check(file, file.UpdateSalesInvoices(invoices));
  Check(file, file.UpdateAuditFile());
  file.CloseAuditFile();
}

}  // namespace zevo::generate
