// SPDX-License-Identifier: Apache-2.0
#include "tests/check/SampleYear.h"

#include <zevo/adapters.h>

#include <memory>
#include <set>
#include <stdexcept>

#include "tests/support/TemporaryFolder.h"
#include "tools/generate/SampleRecords.h"

namespace zevo::testing {
namespace {

using generate::SampleRecords;

// Which of eight documents a document is.
enum Kind { kCancelled, kPlain, kForeign, kCredited, kCreditNote, kShipped, kExempt, kOther };

Kind KindOf(int number) { return static_cast<Kind>(number % 8); }

void Check(const Facade& file, bool succeeded) {
  if (!succeeded) throw std::runtime_error(file.AuditException()->Description());
}

Amount InCents(Amount amount) { return Amount::FromScaled((amount.Scaled() + 50) / 100 * 100); }

// The tax of a line of two decimals has four.
Amount TaxOf(const InvoiceLine& line) {
  const Amount amount = line.DebitAmount() + line.CreditAmount();
  return amount * static_cast<int>(line.Tax()->TaxPercentage()) / 100;
}

void SetRate(InvoiceLine& line, std::string_view code, int percentage) {
  auto tax = std::make_shared<Tax>();
  tax->set_TaxCountryRegion("PT");
  tax->set_TaxCode(code);
  tax->set_TaxPercentage(static_cast<float>(percentage));
  line.set_Tax(tax);
}

void SetTotals(Invoice& document) {
  Amount net;
  Amount tax;
  for (const auto& line : *document.Line()) {
    net += line->DebitAmount() + line->CreditAmount();
    tax += TaxOf(*line);
  }
  DocumentTotals& totals = *document.DocumentTotals();
  totals.set_NetTotal(net);
  totals.set_TaxPayable(InCents(tax));
  totals.set_GrossTotal(net + InCents(tax));
}

void SetShipping(Invoice& document) {
  auto from = std::make_shared<ShippingPointStructure>();
  from->set_DeliveryDate(document.InvoiceDate());
  document.set_ShipFrom(from);
  auto to = std::make_shared<ShippingPointStructure>();
  to->set_DeliveryDate(document.InvoiceDate());
  document.set_ShipTo(to);
  auto order = std::make_shared<OrderReferences>();
  order->set_OriginatingOn("ENC 1");
  order->set_OrderDate("2012-01-01");
  document.Line()->Item(2)->set_OrderReferences(order);
}

// Takes back the first line of another document.
void Credit(Invoice& note, const Invoice& credited) {
  const std::shared_ptr<InvoiceLine> taken = credited.Line()->Item(1);
  auto line = std::make_shared<InvoiceLine>();
  line->set_LineNumber(1);
  line->set_ProductCode(taken->ProductCode());
  line->set_ProductDescription(taken->ProductDescription());
  line->set_Quantity(taken->Quantity());
  line->set_UnitOfMeasure("UN");
  line->set_UnitPrice(taken->UnitPrice());
  line->set_TaxPointDate(note.InvoiceDate());
  line->set_Description("Devolução");
  line->set_DebitAmount(taken->CreditAmount());
  auto reference = std::make_shared<CreditNote>();
  reference->set_Reference(credited.InvoiceNo());
  reference->set_Reason("Devolução");
  auto references = std::make_shared<References>();
  references->CreditNote()->Add(reference);
  line->set_References(references);
  SetRate(*line, "NOR", 23);
  note.Line()->Clear();
  note.Line()->Add(line);
  note.set_InvoiceType(itNC);
  note.set_CustomerID(credited.CustomerID());
}

std::shared_ptr<TaxTable> Taxes() {
  struct Row {
    std::string_view code;
    int percentage;
  };
  auto table = std::make_shared<TaxTable>();
  for (const Row& row : {Row{"RED", 6}, Row{"NOR", 23}, Row{"ISE", 0}}) {
    auto entry = std::make_shared<TaxTableEntry>();
    entry->set_TaxCountryRegion("PT");
    entry->set_TaxCode(row.code);
    entry->set_Description("IVA");
    entry->set_TaxPercentage(row.percentage);
    table->TaxTableEntry()->Add(entry);
  }
  return table;
}

class Year {
 public:
  Year(int documents, uint64_t seed) : records_(documents, seed) {
    for (int i = 0; i < documents; ++i) {
      invoices_.push_back(records_.InvoiceAt(i));
      transactions_.push_back(records_.TransactionAt(i));
      Change(i);
    }
  }

  void Write(const std::string& path) const;
  std::vector<SampleYear::Document> Documents() const;

 private:
  void Change(int number);
  void WriteMasterFiles(AuditFileStreamWriter& file) const;

  SampleRecords records_;
  std::vector<std::unique_ptr<Invoice>> invoices_;
  std::vector<std::unique_ptr<Transaction>> transactions_;
  int invoices_so_far_ = 0;
  int credit_notes_so_far_ = 0;
};

void Year::Change(int number) {
  Invoice& document = *invoices_.back();
  Transaction& transaction = *transactions_.back();
  document.set_Hash("0");
  document.set_HashControl("");
  const Kind kind = KindOf(number);
  if (kind == kCancelled) document.set_InvoiceStatus(isA);
  if (kind == kCreditNote) Credit(document, *invoices_[invoices_.size() - 2]);
  if (kind == kShipped) {
    SetShipping(document);
    SetRate(*document.Line()->Item(2), "RED", 6);
  }
  if (kind == kExempt) {
    SetRate(*document.Line()->Item(3), "ISE", 0);
    document.Line()->Item(3)->set_TaxExemptionReason("Artigo 9.º do CIVA");
  }
  if (kind == kOther) document.set_CustomerID(number % 16 < 8 ? "CF" : "ES1");
  document.set_InvoiceNo(kind == kCreditNote ? "NC A/" + std::to_string(++credit_notes_so_far_)
                                             : "FT A/" + std::to_string(++invoices_so_far_));
  SetTotals(document);
  const Amount gross = document.DocumentTotals()->GrossTotal();
  if (kind == kForeign) {
    auto currency = std::make_shared<CurrencyStructure>();
    currency->set_CurrencyCode("USD");
    currency->set_CurrencyCreditAmount(InCents(gross * 13 / 10));
    document.DocumentTotals()->set_CurrencyValue(currency);
  }
  TransactionLine& debit = *transaction.Line()->Item(1);
  TransactionLine& credit = *transaction.Line()->Item(2);
  debit.set_DebitAmount(gross);
  credit.set_CreditAmount(gross);
  if (kind == kCreditNote) {
    debit.set_AccountID("711");
    credit.set_AccountID("2111");
  }
  for (TransactionLine* const line : {&debit, &credit}) line->set_SourceDocumentID(document.InvoiceNo());
  transaction.set_CustomerID(document.CustomerID());
}

void Year::WriteMasterFiles(AuditFileStreamWriter& file) const {
  Check(file, file.CreateHeader(*records_.TheHeader({})));
  for (int i = 0; i < SampleRecords::kAccounts; ++i) {
    const auto account = records_.Account(i);
    if (account->AccountID().starts_with("21")) account->set_OpeningDebitBalance(100);
    Check(file, file.CreateGeneralLedger(*account));
  }
  GeneralLedger capital;
  capital.set_AccountID("51");
  capital.set_AccountDescription("Capital");
  capital.set_OpeningCreditBalance(100);
  Check(file, file.CreateGeneralLedger(capital));

  std::set<std::string> customers;
  std::set<std::string> products;
  for (const auto& document : invoices_) {
    customers.insert(document->CustomerID());
    for (const auto& line : *document->Line()) products.insert(line->ProductCode());
  }
  const auto customer = records_.CustomerAt(0);
  for (int i = 0; i < SampleRecords::kMasterRecords; ++i) {
    const auto other = records_.CustomerAt(i);
    if (customers.contains(other->CustomerID())) Check(file, file.CreateCustomer(*other));
  }
  customer->set_CustomerID("CF");
  customer->set_CustomerTaxID("999999990");
  customer->set_CompanyName("Consumidor final");
  Check(file, file.CreateCustomer(*customer));
  customer->set_CustomerID("ES1");
  customer->set_CustomerTaxID("B00000000");
  customer->set_CompanyName("Papelería Inventada SL");
  customer->BillingAddress()->set_PostalCode("06001");
  customer->BillingAddress()->set_Country("ES");
  Check(file, file.CreateCustomer(*customer));

  Supplier supplier;
  supplier.set_SupplierID("F1");
  supplier.set_AccountID("Desconhecido");
  supplier.set_SupplierTaxID("501234560");
  supplier.set_CompanyName("Fábrica de Papel");
  supplier.BillingAddress()->set_AddressDetail("Rua do Papel");
  supplier.BillingAddress()->set_City("Porto");
  supplier.BillingAddress()->set_PostalCode("4000-001");
  Check(file, file.CreateSupplier(supplier));
  for (int i = 0; i < SampleRecords::kMasterRecords; ++i) {
    const auto product = records_.ProductAt(i);
    if (products.contains(product->ProductCode())) Check(file, file.CreateProduct(*product));
  }
  Check(file, file.CreateTaxTable(*Taxes()));
}

void Year::Write(const std::string& path) const {
  AuditFileStreamWriter file;
  file.set_AuditFileName(path);
  Check(file, file.CreateAuditFile());
  WriteMasterFiles(file);

  GeneralLedgerEntries entries;
  Totals ledger;
  for (const auto& transaction : transactions_) ledger.Add(*transaction);
  SetTotals(entries, ledger);
  Check(file, file.BeginGeneralLedgerEntries(entries));
  for (int month = 0; month < SampleRecords::kMonths; ++month) {
    Check(file, file.BeginJournal(*records_.JournalOf(month)));
    for (int64_t i = records_.FirstOfMonth(month); i < records_.FirstOfMonth(month + 1); ++i) {
      Check(file, file.CreateTransaction(*transactions_[static_cast<size_t>(i)]));
    }
    Check(file, file.EndJournal());
  }
  Check(file, file.EndGeneralLedgerEntries());

  SalesInvoices section;
  Totals sales;
  for (const auto& document : invoices_) {
    if (document->InvoiceStatus() == isN) sales.Add(*document);
  }
  sales.entries = static_cast<int32_t>(invoices_.size());
  SetTotals(section, sales);
  Check(file, file.BeginSalesInvoices(section));
  for (const auto& document : invoices_) Check(file, file.CreateInvoice(*document));
  Check(file, file.EndSalesInvoices());
  file.CloseAuditFile();
}

std::vector<SampleYear::Document> Year::Documents() const {
  std::vector<SampleYear::Document> documents;
  for (size_t i = 0; i < invoices_.size(); ++i) {
    const Invoice& document = *invoices_[i];
    const Kind kind = KindOf(static_cast<int>(i));
    documents.push_back({.number = document.InvoiceNo(),
                         .type = kind == kCreditNote ? "NC" : "FT",
                         .cancelled = kind == kCancelled,
                         .credited = kind == kCredited && i + 1 < invoices_.size(),
                         .shipped = kind == kShipped,
                         .foreign = kind == kForeign,
                         .exempt = kind == kExempt,
                         .lines = static_cast<int>(document.Line()->Count())});
  }
  return documents;
}

}  // namespace

SampleYear::SampleYear(int documents, uint64_t seed) {
  const Year year(documents, seed);
  const TemporaryFolder folder;
  year.Write(folder.Path("year.xml"));
  text_ = ReadBytes(folder.Path("year.xml"));
  documents_ = year.Documents();
}

}  // namespace zevo::testing
