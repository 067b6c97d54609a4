// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/AuditViews.h"

#include <gmock/gmock.h>

#include "tests/tools/saft/export/ExportTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

constexpr std::string_view kMasterFiles = R"(<MasterFiles>
<GeneralLedger><AccountID>11</AccountID><AccountDescription>Caixa</AccountDescription>
<OpeningDebitBalance>100</OpeningDebitBalance><OpeningCreditBalance>0</OpeningCreditBalance></GeneralLedger>
<GeneralLedger><AccountID>7</AccountID><AccountDescription>Rendimentos</AccountDescription></GeneralLedger>
<GeneralLedger><AccountID>72</AccountID><AccountDescription>Serviços</AccountDescription></GeneralLedger>
<Customer><CustomerID>C1</CustomerID><CompanyName>Ana</CompanyName></Customer>
<Product><ProductCode>P1</ProductCode><ProductDescription>Pão</ProductDescription></Product>
</MasterFiles>)";

// The later transaction comes first.
constexpr std::string_view kLedger = R"(<GeneralLedgerEntries>
<Journal><JournalID>V</JournalID><Description>Vendas</Description>
<Transaction><TransactionID>2012-02-01 V 2</TransactionID><TransactionDate>2012-02-01</TransactionDate>
<Line><RecordID>1</RecordID><AccountID>11</AccountID><Description>D</Description><CreditAmount>20</CreditAmount></Line>
<Line><RecordID>2</RecordID><AccountID>72</AccountID><Description>D</Description><DebitAmount>20</DebitAmount></Line>
</Transaction>
<Transaction><TransactionID>2012-01-10 V 1</TransactionID><TransactionDate>2012-01-10</TransactionDate>
<Line><RecordID>1</RecordID><AccountID>11</AccountID><Description>V</Description><DebitAmount>123</DebitAmount></Line>
<Line><RecordID>2</RecordID><AccountID>72</AccountID><Description>V</Description><CreditAmount>123</CreditAmount></Line>
</Transaction></Journal>
<Journal><JournalID>X</JournalID><Description>Vazio</Description></Journal></GeneralLedgerEntries>)";

std::string Line(std::string_view product, std::string_view quantity, std::string_view amount, std::string_view tax) {
  std::string line = "<Line><ProductCode>";
  line.append(product).append("</ProductCode><Quantity>").append(quantity).append("</Quantity>").append(amount);
  line.append("<Tax><TaxType>IVA</TaxType><TaxCountryRegion>PT</TaxCountryRegion>").append(tax);
  return line.append("</Tax></Line>");
}

constexpr std::string_view kNormal = "<TaxCode>NOR</TaxCode><TaxPercentage>23</TaxPercentage>";
constexpr std::string_view kReduced = "<TaxCode>RED</TaxCode><TaxPercentage>6</TaxPercentage>";

std::string Invoice(std::string_view number, std::string_view date, std::string_view customer, std::string_view status,
                    const std::string& lines, std::string_view totals) {
  std::string invoice = "<Invoice><InvoiceNo>";
  invoice.append(number).append("</InvoiceNo><InvoiceStatus>").append(status).append("</InvoiceStatus><InvoiceDate>");
  invoice.append(date).append("</InvoiceDate><InvoiceType>").append(number.substr(0, 2)).append("</InvoiceType>");
  invoice.append("<CustomerID>").append(customer).append("</CustomerID>").append(lines);
  return invoice.append("<DocumentTotals>").append(totals).append("</DocumentTotals></Invoice>");
}

std::string Totals(std::string_view tax, std::string_view net, std::string_view gross) {
  std::string totals = "<TaxPayable>";
  totals.append(tax).append("</TaxPayable><NetTotal>").append(net).append("</NetTotal><GrossTotal>");
  return totals.append(gross).append("</GrossTotal>");
}

std::string Credit(std::string_view amount) { return std::string("<CreditAmount>").append(amount) + "</CreditAmount>"; }
std::string Debit(std::string_view amount) { return std::string("<DebitAmount>").append(amount) + "</DebitAmount>"; }

// In each kind of database, over a file with a document that is cancelled, one that is missing and a credit note.
class AuditViewsTest : public testing::ExportTest, public ::testing::WithParamInterface<testing::DatabaseKind> {
 protected:
  AuditViewsTest() : ExportTest(GetParam()) {}
  void SetUp() override {
    ExportTest::SetUp();
    if (!database_) return;
    const std::string invoices =
        Invoice("FT A/1", "2012-01-10", "C1", "N", Line("P1", "2", Credit("100.00"), kNormal),
                Totals("23", "100", "123")) +
        Invoice("FT A/2", "2012-01-11", "C1", "A", Line("P1", "1", Credit("50"), kNormal),
                Totals("11.5", "50", "61.5")) +
        Invoice("FT A/4", "2012-02-01", "C2", "N",
                Line("P1", "1", Credit("50.10"), kNormal) + Line("P2", "3", Credit("10"), kReduced),
                Totals("12.12", "60.10", "72.22")) +
        Invoice("NC B/1", "2012-02-03", "C1", "N", Line("P1", "1", Debit("50"), kNormal),
                Totals("11.50", "50.00", "61.50"));
    std::string sections(kMasterFiles);
    sections.append(kLedger).append("<SourceDocuments><SalesInvoices>").append(invoices);
    sections.append("</SalesInvoices></SourceDocuments>");
    Export({File("a.xml", "1", "2012-01-01", "2012-12-31", sections)});
  }
};

TEST_P(AuditViewsTest, SalesAreThoseOfDocumentsThatStand) {
  EXPECT_THAT(Rows("SELECT invoice_no, month, sign FROM live_invoices ORDER BY invoice_no"),
              ElementsAre("FT A/1|2012-01|1", "FT A/4|2012-02|1", "NC B/1|2012-02|-1"));
  EXPECT_THAT(Rows("SELECT invoice_no, net, sold FROM live_invoice_lines ORDER BY position"),
              ElementsAre("FT A/1|100|2", "FT A/4|50.1|1", "FT A/4|10|3", "NC B/1|-50|-1"));
  EXPECT_THAT(Rows("SELECT * FROM sales_by_month ORDER BY month"),
              ElementsAre("1|2012-01|1|100|23|123", "1|2012-02|2|10.1|0.62|10.72"));
  EXPECT_THAT(Rows("SELECT * FROM sales_by_customer ORDER BY customer_id"),
              ElementsAre("1|C1|Ana|2|50|11.5|61.5", "1|C2||1|60.1|12.12|72.22"));
  EXPECT_THAT(Rows("SELECT * FROM sales_by_product ORDER BY product_code"),
              ElementsAre("1|P1|Pão|3|2|100.1", "1|P2||1|3|10"));
}

TEST_P(AuditViewsTest, TaxIsThatOfTheLines) {
  EXPECT_THAT(Rows("SELECT * FROM vat_by_month ORDER BY month, tax_code"),
              ElementsAre("1|2012-01|IVA|PT|NOR|23|1|100|23", "1|2012-02|IVA|PT|NOR|23|2|0.1|0.02",
                          "1|2012-02|IVA|PT|RED|6|1|10|0.6"));
}

TEST_P(AuditViewsTest, ALineWithoutARateHasItsAmountOfTaxOrNone) {
  const std::string exempt = Line("P1", "1", Credit("40"), "<TaxCode>ISE</TaxCode>");
  const std::string stamp = "<TaxCode>SE</TaxCode><TaxAmount>0.80</TaxAmount>";
  const std::string untaxed = "<Line><ProductCode>P1</ProductCode><CreditAmount>7</CreditAmount></Line>";
  const std::string invoices =
      Invoice("FT A/1", "2013-01-10", "C1", "N",
              exempt + exempt + Line("P1", "1", Credit("10"), stamp) + Line("P1", "1", Credit("10"), stamp) + untaxed,
              Totals("1.6", "107", "108.6")) +
      Invoice("NC B/1", "2013-01-11", "C1", "N", Line("P1", "1", Debit("10"), stamp), Totals("0.8", "10", "10.8"));
  Export({File("b.xml", "1", "2013-01-01", "2013-12-31",
               "<SourceDocuments><SalesInvoices>" + invoices + "</SalesInvoices></SourceDocuments>")});
  EXPECT_THAT(Rows("SELECT * FROM vat_by_month WHERE file_id = 2 ORDER BY net"),
              ElementsAre("2|2013-01|||||1|7|0", "2|2013-01|IVA|PT|SE||3|10|0.8", "2|2013-01|IVA|PT|ISE||2|80|0"));
}

TEST_P(AuditViewsTest, SeriesTellWhatIsMissing) {
  EXPECT_THAT(Rows("SELECT * FROM invoice_series ORDER BY series"), ElementsAre("1|FT A|1|4|3|1", "1|NC B|1|1|1|0"));
}

TEST_P(AuditViewsTest, AccountsHaveWhatIsInThoseBelowThem) {
  EXPECT_THAT(Rows("SELECT * FROM journal_totals ORDER BY journal_id"),
              ElementsAre("1|V|Vendas|2|4|143|143", "1|X|Vazio|0|0|0|0"));
  EXPECT_THAT(Rows("SELECT * FROM account_totals ORDER BY account_id"), ElementsAre("1|11|2|123|20", "1|72|2|20|123"));
  EXPECT_THAT(
      Rows("SELECT * FROM trial_balance ORDER BY account_id"),
      ElementsAre("1|11|Caixa|100|0|123|20|203", "1|7|Rendimentos|0|0|20|123|-103", "1|72|Serviços|0|0|20|123|-103"));
}

TEST_P(AuditViewsTest, AStatementBeginsWithTheOpeningBalance) {
  EXPECT_THAT(Rows("SELECT transaction_date, transaction_id, debit, credit, balance FROM account_statement "
                   "WHERE account_id = '11' ORDER BY transaction_date"),
              ElementsAre("2012-01-10|2012-01-10 V 1|123||223", "2012-02-01|2012-02-01 V 2||20|203"));
}

INSTANTIATE_TEST_SUITE_P(Databases, AuditViewsTest,
                         ::testing::Values(testing::DatabaseKind::kSqlite, testing::DatabaseKind::kPostgres),
                         [](const auto& info) { return testing::NameOf(info.param); });

}  // namespace
}  // namespace zevo
