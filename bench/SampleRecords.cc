#include "bench/SampleRecords.h"

#include <memory>
#include <stdexcept>

namespace zevo::bench {
namespace {

constexpr int kMasterRecords = 1000;

void Fill(AddressStructure& address) {
  address.set_AddressDetail("Rua da Alegria, 12, 3.º Esq.");
  address.set_City("Vila Nova de Gaia");
  address.set_PostalCode("4400-123");
}

std::string CustomerOf(int number) { return "C" + std::to_string(number % kMasterRecords); }
std::string ProductOf(int number) { return "P" + std::to_string(number % kMasterRecords); }
std::string TransactionOf(int number) { return "2012-03-15 VENDAS " + std::to_string(number); }

class Sample {
 public:
  Sample(const std::string& fileName, int invoices) : invoices_(invoices) { file_.set_AuditFileName(fileName); }

  void Write() {
    Check(file_.DeleteAuditFile() && file_.CreateAuditFile());
    WriteHeader();
    WriteMasterFiles();
    WriteTransactions();
    WriteInvoices();
    Check(file_.UpdateAuditFile());
  }

 private:
  void Check(bool succeeded) const {
    if (!succeeded) throw std::runtime_error(file_.AuditException()->Description());
  }

  void WriteHeader() {
    Header header;
    header.set_CompanyID("Porto 12345");
    header.set_TaxRegistrationNumber("501234560");
    header.set_TaxAccountingBasis(tabI);
    header.set_CompanyName("Comércio Geral São João, Lda.");
    header.set_BusinessName("São João");
    Fill(*header.CompanyAddress());
    header.set_FiscalYear("2012");
    header.set_StartDate("2012-01-01");
    header.set_EndDate("2012-12-31");
    header.set_DateCreated("2013-01-15");
    header.set_TaxEntity("Global");
    header.set_SoftwareCertificateNumber("0");
    header.set_ProductID("Contas/Exemplo");
    header.set_ProductVersion("1.0");
    Check(file_.CreateHeader(header));
  }

  void WriteMasterFiles() {
    for (int i = 0; i < kMasterRecords; ++i) {
      Customer customer;
      customer.set_CustomerID(CustomerOf(i));
      customer.set_AccountID("211" + std::to_string(i));
      customer.set_CustomerTaxID("501234560");
      customer.set_CompanyName("Cliente número " + std::to_string(i));
      Fill(*customer.BillingAddress());
      Check(file_.CreateCustomer(customer));
    }
    for (int i = 0; i < kMasterRecords; ++i) {
      Product product;
      product.set_ProductType(ptP);
      product.set_ProductCode(ProductOf(i));
      product.set_ProductDescription("Artigo de papelaria " + std::to_string(i));
      product.set_ProductNumberCode("5601234" + std::to_string(100000 + i));
      Check(file_.CreateProduct(product));
    }
  }

  void WriteTransactions() {
    GeneralLedgerEntries totals;
    Check(file_.CreateGeneralLedgerEntries(totals));
    Journal journal;
    journal.set_JournalID("VENDAS");
    journal.set_Description("Diário de vendas");
    Check(file_.CreateJournal(journal));
    for (int i = 0; i < invoices_; ++i) {
      Transaction transaction;
      transaction.set_TransactionID(TransactionOf(i));
      transaction.set_Period("3");
      transaction.set_TransactionDate("2012-03-15");
      transaction.set_SourceID("maria");
      transaction.set_Description("Venda a crédito de mercadorias");
      transaction.set_DocArchivalNumber(std::to_string(i));
      transaction.set_TransactionType(ttN);
      transaction.set_GLPostingDate("2012-03-15T10:20:30");
      transaction.set_CustomerID(CustomerOf(i));
      for (const bool credit : {false, true}) {
        auto line = std::make_shared<TransactionLine>();
        line->set_RecordID(credit ? "2" : "1");
        line->set_AccountID(credit ? "711" : "2111");
        line->set_SourceDocumentID("FT A/" + std::to_string(i));
        line->set_SystemEntryDate("2012-03-15T10:20:30");
        line->set_Description("Venda de mercadorias");
        const Amount amount = Amount::FromScaled(123'400 + i * 100);
        credit ? line->set_CreditAmount(amount) : line->set_DebitAmount(amount);
        transaction.Line()->Add(line);
      }
      Check(file_.CreateTransaction(transaction, &journal, &totals));
    }
    Check(file_.UpdateGeneralLedgerEntries(totals));
  }

  void WriteInvoices() {
    SalesInvoices totals;
    Check(file_.CreateSalesInvoices(totals));
    const std::string hash(172, 'h');
    for (int i = 0; i < invoices_; ++i) {
      Invoice invoice;
      invoice.set_InvoiceNo("FT A/" + std::to_string(i));
      invoice.set_InvoiceStatus(isN);
      invoice.set_Hash(hash);
      invoice.set_HashControl("1");
      invoice.set_Period("3");
      invoice.set_InvoiceDate("2012-03-15");
      invoice.set_InvoiceType(itFT);
      invoice.set_SystemEntryDate("2012-03-15T10:20:30");
      invoice.set_TransactionID(TransactionOf(i));
      invoice.set_CustomerID(CustomerOf(i));
      for (int number = 1; number <= 3; ++number) AddLine(invoice, number, i + number);
      invoice.DocumentTotals()->set_TaxPayable(Amount::FromText("1.71"));
      invoice.DocumentTotals()->set_NetTotal(Amount::FromText("7.41"));
      invoice.DocumentTotals()->set_GrossTotal(Amount::FromText("9.12"));
      Check(file_.CreateInvoice(invoice, &totals));
    }
    Check(file_.UpdateSalesInvoices(totals));
  }

  static void AddLine(Invoice& invoice, int number, int product) {
    auto line = std::make_shared<InvoiceLine>();
    line->set_LineNumber(number);
    line->set_ProductCode(ProductOf(product));
    line->set_ProductDescription("Artigo de papelaria " + std::to_string(product % kMasterRecords));
    line->set_Quantity(2);
    line->set_UnitOfMeasure("UN");
    line->set_UnitPrice(Amount::FromScaled(12'350));
    line->set_TaxPointDate("2012-03-15");
    line->set_Description("Artigo de papelaria e escritório");
    line->set_CreditAmount(Amount::FromScaled(24'700));
    auto tax = std::make_shared<Tax>();
    tax->set_TaxCountryRegion("PT");
    tax->set_TaxCode("NOR");
    tax->set_TaxPercentage(23);
    line->set_Tax(tax);
    invoice.Line()->Add(line);
  }

  AuditFile file_;
  int invoices_;
};

}  // namespace

void WriteSampleFile(const std::string& fileName, int invoices) { Sample(fileName, invoices).Write(); }

}  // namespace zevo::bench
