// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/ViolationErrors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

// The sample company, whose file is valid, with changes that make it invalid.
class ViolationErrorsTest : public testing::ToolTest {
 protected:
  void SetUp() override {
    std::filesystem::remove_all(folder_.Path(kDataset));
    std::filesystem::copy(ZEVO_COMPANY_FOLDER, folder_.Path(kDataset));
  }

  /// Replaces the first text of its kind in a file.
  void Change(std::string_view file, std::string_view from, std::string_view to) const {
    std::string text = testing::ReadBytes(In(file));
    const size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    Write(file, text.replace(at, from.size(), to));
  }

  /// Expects that nothing is written, in either way, and that these lines are told.
  void ExpectErrors(const std::vector<std::string>& lines) const {
    std::string expected;
    for (const std::string& line : lines) expected += "saft: " + In(line) + "\n";
    for (const char* way : {"--schema=" ZEVO_SCHEMA, "--stream"}) {
      const testing::Outcome outcome = Run({"create", way, folder_.Path(kDataset), Output()});
      EXPECT_EQ(outcome.code, 2);
      EXPECT_EQ(outcome.out, "");
      EXPECT_EQ(outcome.err, expected);
      EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
    }
  }
};

struct Invalid {
  const char* shows;
  const char* file;
  const char* from;
  const char* to;
  std::vector<std::string> told;
};

class ViolationErrorsInvalidTest : public ViolationErrorsTest, public ::testing::WithParamInterface<Invalid> {};

TEST_P(ViolationErrorsInvalidTest, IsToldWithFileRowAndColumn) {
  Change(GetParam().file, GetParam().from, GetParam().to);
  ExpectErrors(GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    All, ViolationErrorsInvalidTest,
    ::testing::Values(
        Invalid{"Header",
                "header.csv",
                ",2012-01-01,",
                ",1999-01-01,",
                {"header.csv:2: StartDate: \"1999-01-01\": must not be less than 2000-01-01"}},
        Invalid{"OwnedChild",
                "header.csv",
                "3500-618",
                "3500",
                {"header.csv:2: CompanyAddress.PostalCode: \"3500\": does not have the right form, which is like "
                 "4000-041"}},
        Invalid{"Account",
                "general_ledger.csv",
                "131,Dep",
                "X131,Dep",
                {"general_ledger.csv:7: AccountID: \"X131\": does not have the right form, which is like 111"}},
        Invalid{"EmptyCell",
                "customers.csv",
                ",545143896,",
                ",,",
                {"customers.csv:3: CustomerTaxID: is empty, and it is required"}},
        Invalid{"ChildThatMayBeAbsent",
                "customers.csv",
                "3510-159,,PT,,,,",
                "3510-159,,PT,1,,,",
                {"customers.csv:4: ShipToAddress.AddressDetail: is empty, and it is required",
                 "customers.csv:4: ShipToAddress.City: is empty, and it is required",
                 "customers.csv:4: ShipToAddress.PostalCode: is empty, and it is required"}},
        Invalid{"Supplier",
                "suppliers.csv",
                "5050-229,,PT",
                ",,PT",
                {"suppliers.csv:3: BillingAddress.PostalCode: is empty, and it is required"}},
        Invalid{
            "Product", "products.csv", "P,V002", "P,", {"products.csv:3: ProductCode: is empty, and it is required"}},
        Invalid{"TaxRate",
                "tax_table.csv",
                "PT,INT",
                "PT,MED",
                {"tax_table.csv:3: TaxCode: \"MED\": does not have the right form, which is like NOR"}},
        Invalid{"Journal",
                "journals.csv",
                "Di\u00e1rio de compras e servi\u00e7os externos",
                "",
                {"journals.csv:3: Description: is empty, and it is required"}},
        Invalid{"Transaction",
                "transactions.csv",
                "2012-01-04,loja1",
                "2012-1-4,loja1",
                {"transactions.csv:3: TransactionDate: \"2012-1-4\": must be a date, such as 2008-03-05"}},
        Invalid{"TransactionLine",
                "transaction_lines.csv",
                "2,71111,VD A/1",
                "2,x,VD A/1",
                {"transaction_lines.csv:3: AccountID: \"x\": does not have the right form, which is like 111"}},
        Invalid{"Invoice",
                "invoices.csv",
                "2012-01-11T09:32:03",
                "ontem",
                {"invoices.csv:3: SystemEntryDate: \"ontem\": must be a date and time, such as 2008-03-05T10:30:00"}},
        Invalid{"InvoiceLine",
                "invoice_lines.csv",
                ",15,UN,16.80,2012-01-10",
                ",15,UN,16.80,2012",
                {"invoice_lines.csv:3: TaxPointDate: \"2012\": must be a date, such as 2008-03-05"}},
        Invalid{"OrderInTheLine",
                "invoice_lines.csv",
                ",2012-01-10,M001",
                ",amanh\u00e3,M001",
                {"invoice_lines.csv:8: OrderReferences.OrderDate: \"amanhã\": must be a date, such as 2008-03-05"}},
        Invalid{"TaxOfALine",
                "invoice_lines.csv",
                "PT,INT,13",
                "PT,MED,13",
                {"invoice_lines.csv:4: Tax.TaxCode: \"MED\": does not have the right form, which is like NOR"}},
        Invalid{"CodeOfMany",
                "invoice_lines.csv",
                ",PT,INT,13",
                ",XX,INT,13",
                {"invoice_lines.csv:4: Tax.TaxCountryRegion: \"XX\": is none of the codes, which \"saft columns "
                 "invoice_lines.csv\" tells"}},
        Invalid{"Reference",
                "invoices.csv",
                "C0020",
                "C9920",
                {"invoices.csv:3: CustomerID: \"C9920\": not in customers.csv"}},
        Invalid{"ReferenceOfALine",
                "invoice_lines.csv",
                "V009",
                "V999",
                {"invoice_lines.csv:3: ProductCode: \"V999\": not in products.csv"}},
        Invalid{"CodeThatTheLibraryHasNot",
                "invoices.csv",
                "2012-01-11,FT,",
                "2012-01-11,FS,",
                {"invoices.csv:3: InvoiceType: \"FS\": cannot be written, and the element must not be empty"}},
        Invalid{"ColumnThatLacks",
                "products.csv",
                ",ProductDescription,",
                ",ProductGroup2,",
                {"products.csv:1: column \"ProductGroup2\" is not known; did you mean ProductGroup?",
                 "products.csv:1: column \"ProductDescription\" is missing"}}),
    [](const auto& test) { return test.param.shows; });

class ViolationErrorsPartTest : public ViolationErrorsTest {
 protected:
  void SetUp() override {
    ViolationErrorsTest::SetUp();
    Write("order_references.csv", "InvoiceNo,LineNumber,OriginatingOn,OrderDate\nFT A/2,1,E 7,2012-01-10\n");
  }
};

TEST_F(ViolationErrorsPartTest, AnOrderIsToldInItsOwnRow) {
  Change("order_references.csv", "2012-01-10", "ontem");
  ExpectErrors({"order_references.csv:2: OrderDate: \"ontem\": must be a date, such as 2008-03-05"});
}

TEST_F(ViolationErrorsPartTest, ACreditNoteIsToldInItsOwnRow) {
  Change("credit_notes.csv", "FT A/40,Devolu\u00e7\u00e3o por engano no artigo enviado\n",
         "FT A/40,Motivo\nNC A/2,1,FT A/41,Outro\n");
  ExpectErrors({"credit_notes.csv:5: CreditNote may appear only once"});
}

TEST_F(ViolationErrorsTest, ADateInASpreadsheetIsToldAsSpreadsheetsShowIt) {
  Write("tax_table.csv",
        "TaxCountryRegion;TaxCode;Description;TaxExpirationDate;TaxPercentage\nPT;RED;Reduzida;40939;6\n");
  EXPECT_THAT(Run({"create", folder_.Path(kDataset), Output()}).err,
              ::testing::HasSubstr("tax_table.csv:2: TaxExpirationDate: \"40939\": not a date such as 31/12/2012\n"));
}

TEST_F(ViolationErrorsTest, ARowOfTotalsIsToldOnce) {
  Change("customers.csv", "\nC0002,", "\n,,,Total,,,,,,,,,,,,,,,,,,,,\nC0002,");
  ExpectErrors({"customers.csv:3: CustomerID: is empty, and it is required"});
}

TEST_F(ViolationErrorsTest, ADocumentWithoutLinesIsToldInItsRow) {
  Change("invoices.csv", "\nFT A/2,",
         "\nFT A/9999,N,H,1,1,2012-01-11,FT,0,2012-01-11T09:32:03,,C0020,"
         ",,,,,,,,,,,,,,,,,,1,1,1,,,,,,,\nFT A/2,");
  ExpectErrors({"invoices.csv:3: has no row in invoice_lines.csv"});
}

TEST_F(ViolationErrorsTest, WhereThereIsNoRowTheSentenceIsOfTheFile) {
  for (const char* file : {"general_ledger.csv", "customers.csv", "suppliers.csv", "products.csv", "tax_table.csv",
                           "invoices.csv", "invoice_lines.csv", "credit_notes.csv"}) {
    std::filesystem::remove(In(file));
  }
  const testing::Outcome outcome = Run({"create", folder_.Path(kDataset), Output()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + Output() + ": /AuditFile has no MasterFiles, which is required.\n");
  EXPECT_EQ(Run({"--lang", "pt", "create", folder_.Path(kDataset), Output()}).err,
            "saft: " + Output() + ": /AuditFile n\u00e3o tem MasterFiles, que \u00e9 obrigat\u00f3rio.\n");
}

TEST_F(ViolationErrorsTest, TheyAreToldInPortuguese) {
  Change("header.csv", ",2012-01-01,", ",ontem,");
  Change("customers.csv", ",545143896,", ",,");
  EXPECT_EQ(Run({"--lang", "pt", "create", folder_.Path(kDataset), Output()}).err,
            "saft: " + In("header.csv") +
                ":2: StartDate: \"ontem\": tem de ser uma data, como 2008-03-05\n"
                "saft: " +
                In("customers.csv") + ":3: CustomerTaxID: est\u00e1 vazia, e \u00e9 obrigat\u00f3ria\n");
}

// Cells that cannot be read and violations are in one list, and neither twice.
TEST_F(ViolationErrorsTest, TheyStandAmongTheOtherErrorsInOrder) {
  Change("header.csv", ",2012-01-01,", ",ontem,");
  Change("customers.csv", ",,,,232000114,,,,0", ",,,,232000114,,,,x");
  Change("invoices.csv", "2012-01-11T09:32:03", "ontem");
  Change("invoices.csv", "FT A/3,N,", "FT A/3,Z,");
  Change("invoice_lines.csv", ",15,UN,16.80,", ",quinze,UN,16.80,");
  ExpectErrors({"header.csv:2: StartDate: \"ontem\": must be a date, such as 2008-03-05",
                "customers.csv:3: SelfBillingIndicator: \"x\": is neither 0 nor 1",
                "invoices.csv:3: SystemEntryDate: \"ontem\": must be a date and time, such as 2008-03-05T10:30:00",
                "invoices.csv:4: InvoiceStatus: \"Z\": not one of N, A, F, S",
                "invoice_lines.csv:3: Quantity: \"quinze\": not an amount with a decimal point"});
}

TEST_F(ViolationErrorsTest, ReferencesToLostRowsAreNotTold) {
  Change("customers.csv", "C0002,", "C0002");
  Change("products.csv", "ProductCode", "ProdutCode");
  Change("invoice_lines.csv", "FT A/2,1,", "FT A/2,");
  ExpectErrors({"customers.csv:3: 23 cells, but the header has 24",
                "products.csv:1: column \"ProdutCode\" is not known; did you mean ProductCode?",
                "invoice_lines.csv:4: 17 cells, but the header has 18"});
}

TEST_F(ViolationErrorsTest, KeysThatXmlCannotHoldAreNotTheSame) {
  Change("suppliers.csv", "F001", "F\x01");
  Change("suppliers.csv", "F002", "G\x01");
  ExpectErrors({R"(suppliers.csv:2: SupplierID: "F\x01": has a character that XML does not allow)",
                R"(suppliers.csv:3: SupplierID: "G\x01": has a character that XML does not allow)"});
}

TEST_F(ViolationErrorsTest, ATransactionWhoseOnlyLineNamesAnotherIsNotTold) {
  Change(
      "transactions.csv", "\nVENDAS,2012-01-04 VENDAS 010002,",
      "\nVENDAS,2012-01-03 VENDAS 1,1,2012-01-03,x,Venda,1,N,2012-01-03T14:28:09,,\nVENDAS,2012-01-04 VENDAS 010002,");
  Change("transaction_lines.csv", "\n2012-01-04 VENDAS 010002,1,",
         "\n2012-01-03 VENDAS 2,1,111,,2012-01-03T12:08:45,Venda,1,\n2012-01-04 VENDAS 010002,1,");
  ExpectErrors({"transaction_lines.csv:7: TransactionID: \"2012-01-03 VENDAS 2\": not in transactions.csv"});
}

// The files of documents are read twice.
TEST_F(ViolationErrorsPartTest, TextsThatXmlCannotHoldAreToldInEveryFile) {
  Change("journals.csv", "Di\u00e1rio de vendas", "Di\x01rio");
  Change("transactions.csv", "2012-01-04,loja1", "2012-01-04,l\x01");
  Change("transaction_lines.csv", "2,71111,VD A/1", "2,71111,V\x01");
  Change("invoices.csv", "2012-01-11 VENDAS", "\x01");
  Change("invoice_lines.csv", ",15,UN,16.80", ",15,U\x01,16.80");
  Change("order_references.csv", "E 7", "\x01");
  Change("credit_notes.csv", "Devolu\u00e7\u00e3o", "\x01");
  const auto at = [](const char* cell) { return std::string(cell) + ": has a character that XML does not allow"; };
  ExpectErrors({at(R"(journals.csv:2: Description: "Di\x01rio")"), at(R"(transactions.csv:3: SourceID: "l\x01")"),
                at(R"(transaction_lines.csv:3: SourceDocumentID: "V\x01")"),
                at(R"(invoices.csv:3: TransactionID: "\x01 010004")"),
                at(R"(invoice_lines.csv:3: UnitOfMeasure: "U\x01")"),
                at(R"(order_references.csv:2: OriginatingOn: "\x01")"),
                at(R"(credit_notes.csv:2: Reason: "\x01 de mercadoria avariada no transporte")")});
}

TEST_F(ViolationErrorsTest, AFileIsPutInPlaceWithoutThemWhenThatIsWanted) {
  Change("customers.csv", ",545143896,", ",,");
  EXPECT_EQ(Run({"create", "--no-validate", folder_.Path(kDataset), Output()}).code, 0);
  EXPECT_EQ(Run({"validate", Output()}).code, 1);
}

}  // namespace
}  // namespace zevo
