// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PartyRulesTest : public CheckTest {
 protected:
  std::vector<std::string> OfCompany(std::string_view number) {
    return Findings(CleanFile().With("Header/TaxRegistrationNumber", number));
  }
  std::vector<std::string> OfCustomer(std::string_view number, std::string_view country = "PT") {
    return Findings(
        CleanFile().With("Customer/CustomerTaxID", number).With("Customer/BillingAddress/Country", country));
  }
  std::vector<std::string> OfSupplier(std::string_view number, std::string_view country) {
    return Findings(
        CleanFile().With("Supplier/SupplierTaxID", number).With("Supplier/BillingAddress/Country", country));
  }
};

TEST_F(PartyRulesTest, TheCompanysNumberEndsInItsCheckDigit) {
  EXPECT_THAT(OfCompany("501234561"),
              ElementsAre("NIF-CHECK E Header/TaxRegistrationNumber [501234561] [501234560] []"));
  EXPECT_THAT(OfCompany(" 503333336\n"), IsEmpty());
  // A rest of 1 and of 0 both give 0.
  EXPECT_THAT(OfCompany("100000010"), IsEmpty());
  EXPECT_THAT(OfCompany("999999990"), IsEmpty());
  EXPECT_THAT(OfCompany("0501234560"), ElementsAre("NIF-CHECK E Header/TaxRegistrationNumber [0501234560] [] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With("Header/TaxRegistrationNumber", "501234561")),
      ElementsAre(
          "Cabeçalho: o número de contribuinte 501234561 não é válido: pelo algarismo de controlo, o último, seria "
          "501234560.",
          "Header: the tax number 501234561 is not valid: by its check digit, the last one, it would be 501234560."));
}

TEST_F(PartyRulesTest, SoDoesThatOfCustomersAndSuppliersInPortugal) {
  EXPECT_THAT(OfCustomer("502222221"), ElementsAre("NIF-CHECK W Customer C1/CustomerTaxID [502222221] [502222220] []"));
  EXPECT_THAT(OfCustomer("50222222"), ElementsAre("NIF-CHECK W Customer C1/CustomerTaxID [50222222] [] []"));
  EXPECT_THAT(OfCustomer("Desconhecido"), ElementsAre("NIF-CHECK W Customer C1/CustomerTaxID [Desconhecido] [] []"));
  EXPECT_THAT(OfSupplier("503333333", "PT"), ElementsAre("NIF-CHECK W Supplier F1/SupplierTaxID [503333333] "
                                                         "[503333336] []",
                                                         "ADR-POSTCODE W Supplier F1/BillingAddress/PostalCode [06001] "
                                                         "[Desconhecido] []"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kWarnings);
  EXPECT_THAT(OfCustomer("502222221", "AO"), IsEmpty());
  EXPECT_THAT(OfCustomer("502222221", "Desconhecido"), IsEmpty());
}

TEST_F(PartyRulesTest, ANumberIsNeverEmpty) {
  EXPECT_THAT(OfCustomer(" ", "AO"), ElementsAre("NIF-CHECK W Customer C1/CustomerTaxID [ ] [] []"));
  EXPECT_THAT(OfCustomer(" "), ElementsAre("NIF-CHECK W Customer C1/CustomerTaxID [ ] [] []"));
  EXPECT_THAT(OfCustomer("", "AO"), ElementsAre("SCHEMA E Customer C1/CustomerTaxID [] [1] []"));
}

TEST_F(PartyRulesTest, APortugueseNumberBeginsAsTheyDo) {
  EXPECT_THAT(OfCompany("400000008"), ElementsAre("NIF-PREFIX W Header/TaxRegistrationNumber [400000008] [] []"));
  EXPECT_THAT(OfCompany("450000001"), IsEmpty());
  EXPECT_THAT(OfCustomer("400000008"), ElementsAre("NIF-PREFIX W Customer C1/CustomerTaxID [400000008] [] []"));
  EXPECT_THAT(OfCustomer("400000008", "FR"), IsEmpty());
  // One fault, one finding.
  EXPECT_THAT(OfCompany("400000009"),
              ElementsAre("NIF-CHECK E Header/TaxRegistrationNumber [400000009] [400000008] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With("Header/TaxRegistrationNumber", "400000008")),
      ElementsAre("Cabeçalho: o número de contribuinte 400000008 não começa como nenhum dos que são atribuídos.",
                  "Header: the tax number 400000008 does not begin as any of those that are given out."));
}

TEST_F(PartyRulesTest, ANumberHasNoCountryInFront) {
  EXPECT_THAT(OfCustomer("PT502222221"),
              ElementsAre("NIF-COUNTRY W Customer C1/CustomerTaxID [PT502222221] [502222221] []"));
  EXPECT_THAT(OfCustomer("PT 502222220", "AO"),
              ElementsAre("NIF-COUNTRY W Customer C1/CustomerTaxID [PT 502222220] [502222220] []"));
  EXPECT_THAT(OfSupplier("ESB12345678", "ES"),
              ElementsAre("NIF-COUNTRY W Supplier F1/SupplierTaxID [ESB12345678] [B12345678] []"));
  EXPECT_THAT(OfSupplier("ESB12345678", "FR"), IsEmpty());
  EXPECT_THAT(OfSupplier("EL123456789", "GR"),
              ElementsAre("NIF-COUNTRY W Supplier F1/SupplierTaxID [EL123456789] [123456789] []"));
  EXPECT_THAT(OfSupplier("EL123456789", "DE"), IsEmpty());
  EXPECT_THAT(OfSupplier("CHE-123.456.788", "CH"), IsEmpty());
  EXPECT_THAT(OfSupplier("CH-123.456.788", "CH"),
              ElementsAre("NIF-COUNTRY W Supplier F1/SupplierTaxID [CH-123.456.788] [-123.456.788] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With("Supplier/SupplierTaxID", "ESB12345678")),
      ElementsAre("Fornecedor F1: o número de contribuinte ESB12345678 tem o código do país à frente; devia ser "
                  "B12345678.",
                  "Supplier F1: the tax number ESB12345678 has the code of the country in front; it should be "
                  "B12345678."));
}

TEST_F(PartyRulesTest, WithNifCountryOffSuchANumberIsStillNotLookedAt) {
  checker_.set_Severity("NIF-COUNTRY", Severity::kOff);
  EXPECT_THAT(OfCustomer("PT502222221"), IsEmpty());
}

TEST_F(PartyRulesTest, TheFinalConsumerHasItsNumberAndNobodyElse) {
  const CleanFile other_number = CleanFile().With("Customer[2]/CustomerTaxID", "502222220");
  EXPECT_THAT(Findings(other_number), ElementsAre("CUS-FINAL W Customer CF/CustomerTaxID [502222220] [999999990] []"));
  EXPECT_THAT(Findings(other_number.With("Customer[2]/CompanyName", "Consumidor Final ")),
              ElementsAre("CUS-FINAL W Customer CF/CustomerTaxID [502222220] [999999990] []"));
  EXPECT_THAT(Findings(CleanFile().With("Customer[2]/CompanyName", "CONSUMIDOR FINAL")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("Customer[2]/CompanyName", "Ana")),
              ElementsAre("CUS-FINAL I Customer CF/CompanyName [Ana] [Consumidor final] []"));
  EXPECT_THAT(
      Sentences(other_number),
      ElementsAre("Cliente CF: o consumidor final tem o número de contribuinte 502222220, e devia ter 999999990.",
                  "Customer CF: the final consumer has the tax number 502222220 and should have 999999990."));
}

TEST_F(PartyRulesTest, PostalCodesInPortugalHaveTheirForm) {
  const auto of_code = [&](std::string_view path, std::string_view code) {
    return Findings(CleanFile().With(path, code));
  };
  constexpr std::string_view kBilling = "Customer/BillingAddress/PostalCode";
  EXPECT_THAT(of_code(kBilling, "4710-229 BRAGA"),
              ElementsAre("ADR-POSTCODE W Customer C1/BillingAddress/PostalCode [4710-229 BRAGA] [Desconhecido] []"));
  for (const std::string_view code : {"4710", "4710229", "4710 229", "471-0229", "4710-22a", "desconhecido"}) {
    EXPECT_THAT(FindingsOf("ADR-POSTCODE", CleanFile().With(kBilling, code)), ::testing::SizeIs(1)) << code;
  }
  EXPECT_THAT(of_code(kBilling, "Desconhecido"), IsEmpty());
  EXPECT_THAT(of_code("Customer/ShipToAddress/PostalCode", "4800"),
              ElementsAre("ADR-POSTCODE W Customer C1/ShipToAddress/PostalCode [4800] [Desconhecido] []"));
  EXPECT_THAT(of_code("Invoice/ShipTo/Address/PostalCode", "4800"),
              ElementsAre("ADR-POSTCODE W Invoice FT A/1/ShipTo/Address/PostalCode [4800] [Desconhecido] []"));
  // The schema looks at the company's.
  EXPECT_THAT(of_code("Header/CompanyAddress/PostalCode", "4000"),
              ElementsAre("SCHEMA E Header/CompanyAddress/PostalCode [4000] [([0-9]{4}-[0-9]{3})] []"));
  EXPECT_THAT(Sentences(CleanFile().With(kBilling, "4710")),
              ElementsAre("Cliente C1: o código postal \"4710\" não tem a forma 1234-567, nem é \"Desconhecido\".",
                          "Customer C1: the postal code \"4710\" does not have the form 1234-567, nor is it "
                          "\"Desconhecido\"."));
}

}  // namespace
}  // namespace zevo::testing
