// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "tests/facades/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

class AuditFileValidatorTest : public ::testing::Test {
 protected:
  AuditFileValidatorTest() {
    validator_.Found = [this](const Violation& violation) {
      violations_.push_back(violation);
      return true;
    };
  }

  std::string Complete() { return testing::ReadBytes(ZEVO_COMPLETE_FILE); }
  /// The complete file with a text replaced by another, everywhere from its first occurrence on `times` times.
  std::string With(std::string_view text, std::string_view other, std::string document = {}) {
    if (document.empty()) document = Complete();
    const size_t at = document.find(text);
    EXPECT_NE(at, std::string::npos) << text;
    return document.replace(at, text.size(), other);
  }
  bool Validate(std::string_view document) {
    violations_.clear();
    validator_.set_AuditFileName(folder_.Write("file.xml", document));
    return validator_.ValidateAuditFile();
  }
  std::vector<std::string> Sentences(Language language = Language::kPortuguese) {
    std::vector<std::string> sentences;
    for (const Violation& violation : violations_) sentences.push_back(Describe(violation, language));
    return sentences;
  }

  testing::UseSchema schema_;
  testing::TemporaryFolder folder_;
  AuditFileValidator validator_;
  std::vector<Violation> violations_;
};

TEST_F(AuditFileValidatorTest, OfAValidFileNothingIsTold) {
  EXPECT_TRUE(Validate(Complete()));
  EXPECT_EQ(validator_.AuditException(), nullptr);
  EXPECT_EQ(validator_.Violations(), 0);
  EXPECT_THAT(violations_, IsEmpty());
}

TEST_F(AuditFileValidatorTest, ADateWithBlanksIsToldInItsRecordWithItsPlace) {
  ASSERT_TRUE(Validate(With("<InvoiceDate>2008-03-09<", "<InvoiceDate> 2008-03-09\n<")));
  ASSERT_THAT(violations_, SizeIs(1));
  EXPECT_EQ(violations_[0].kind, EntityKind::kInvoice);
  EXPECT_EQ(violations_[0].path, "InvoiceDate");
  EXPECT_EQ(violations_[0].value, " 2008-03-09\n");
  EXPECT_EQ(violations_[0].allowed, "date");
  EXPECT_GT(violations_[0].place.offset, 0);
  EXPECT_THAT(Sentences(Language::kEnglish)[0], StartsWith("Invoice FT 2008/1: InvoiceDate, \" 2008-03-09\n\", must be "
                                                           "a date, such as 2008-03-05, without blanks around it"));
}

// The patterns are those that the sentences know.
TEST_F(AuditFileValidatorTest, CodesOfThePatternsAreToldInWords) {
  const auto told = [this](std::string_view text, std::string_view other) {
    EXPECT_TRUE(Validate(With(text, other)));
    return violations_.size() == 1 ? Sentences(Language::kEnglish)[0] : std::to_string(violations_.size());
  };
  const std::string country = "must be the code of a country, of two letters (ISO 3166)";
  EXPECT_THAT(told("<Country>CH<", "<Country>XX<"), HasSubstr(country));
  EXPECT_THAT(told("<TaxCountryRegion>PT-AC<", "<TaxCountryRegion>PT-XX<"), HasSubstr(country + ", PT-AC or PT-MA ("));
  EXPECT_THAT(told("<CurrencyCode>USD<", "<CurrencyCode>XXX<"),
              HasSubstr("must be the code of a currency, of three letters (ISO 4217) ("));
  EXPECT_THAT(told("<TaxCode>INT<", "<TaxCode>MED<"),
              HasSubstr("must be RED, INT, NOR, ISE, OUT or the number of an item, such as 17.3.1 ("));
}

TEST_F(AuditFileValidatorTest, AViolationHasItsRecordItsPlaceAndWhatWouldBeRight) {
  const std::string document = With("<InvoiceStatus>N<", "<InvoiceStatus>X<");
  ASSERT_TRUE(Validate(document));
  ASSERT_THAT(violations_, SizeIs(1));
  const Violation& violation = violations_[0];
  EXPECT_EQ(violation.number, 1840);
  EXPECT_EQ(violation.kind, EntityKind::kInvoice);
  EXPECT_EQ(violation.key, "FT 2008/1");
  EXPECT_EQ(violation.path, "InvoiceStatus");
  EXPECT_EQ(violation.value, "X");
  EXPECT_EQ(violation.allowed, "N, S, A, F");
  EXPECT_EQ(document.substr(static_cast<size_t>(violation.place.offset), 17), "<InvoiceStatus>X<");
  EXPECT_EQ(validator_.Violations(), 1);
}

TEST_F(AuditFileValidatorTest, AllViolationsAreToldInTheOrderOfTheFile) {
  std::string document = With("<CustomerTaxID>502222222<", "<CustomerTaxID><");
  document = With("<Hash>", "<!-- ", document);
  document = With("</Hash>", " -->", document);
  document =
      With("<CustomerID>C1</CustomerID>\n        <ShipTo>", "<CustomerID>C9</CustomerID>\n        <ShipTo>", document);
  ASSERT_TRUE(Validate(document)) << validator_.AuditException()->Description();
  EXPECT_THAT(
      Sentences(),
      ElementsAre(StartsWith("O cliente C1: CustomerTaxID, \"\", tem de ter pelo menos 1 carácter (linha "),
                  StartsWith("A fatura FT 2008/1 não tem Hash, que é obrigatório (linha "),
                  StartsWith("A fatura FT 2008/1: CustomerID, \"C9\", não identifica nenhum Customer do ficheiro (")));
  EXPECT_THAT(Sentences(Language::kEnglish),
              ElementsAre(StartsWith("Customer C1: CustomerTaxID, \"\", must have at least 1 character (line "),
                          StartsWith("Invoice FT 2008/1 has no Hash, which is required (line "),
                          StartsWith("Invoice FT 2008/1: CustomerID, \"C9\", identifies no Customer of the file (")));
}

TEST_F(AuditFileValidatorTest, WhoeverIsToldMayEndIt) {
  std::string document = With("<InvoiceStatus>N<", "<InvoiceStatus>X<");
  document = With("<InvoiceType>FT<", "<InvoiceType>X<", document);
  int calls = 0;
  validator_.Found = [&](const Violation&) { return ++calls < 1; };
  EXPECT_TRUE(Validate(document));
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(validator_.Violations(), 1);
}

// More than the 256 KiB after which progress is told again.
std::string Large(std::string document) {
  const std::string comment = "<!-- " + std::string(600'000, 'x') + " -->";
  return document.insert(document.find("<Header>"), comment);
}

TEST_F(AuditFileValidatorTest, ProgressIsToldInBytesOfTheFile) {
  std::vector<int64_t> told;
  validator_.Progress = [&](int64_t bytes) {
    told.push_back(bytes);
    return true;
  };
  const std::string document = Large(Complete());
  EXPECT_TRUE(Validate(document));
  ASSERT_THAT(told, SizeIs(::testing::Ge(3U)));
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_LE(told[0], 400'000);
  EXPECT_EQ(told.back(), static_cast<int64_t>(document.size()));
  told.clear();
  EXPECT_TRUE(Validate(Complete()));
  EXPECT_THAT(told, ElementsAre(static_cast<int64_t>(Complete().size())));
}

TEST_F(AuditFileValidatorTest, EachPassIsTold) {
  std::vector<int64_t> told;
  validator_.Progress = [&](int64_t bytes) {
    told.push_back(bytes);
    return true;
  };
  const std::string document = Large(With("<InvoiceStatus>N<", "<InvoiceStatus>X<"));
  EXPECT_TRUE(Validate(document));
  EXPECT_EQ(validator_.Violations(), 1);
  EXPECT_FALSE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.back(), static_cast<int64_t>(document.size()));
}

TEST_F(AuditFileValidatorTest, ProgressMayEndItInEachPass) {
  const std::string valid = Large(Complete());
  const std::string invalid = Large(With("<AuditFile ", "<AuditFile id=\"1\" "));
  for (const auto& [document, last, found] :
       {std::tuple{valid, 1, 0}, {valid, 2, 0}, {invalid, 1, 1}, {invalid, 2, 1}}) {
    int calls = 0;
    validator_.Progress = [&, most = last](int64_t) { return ++calls < most; };
    EXPECT_FALSE(Validate(document));
    EXPECT_EQ(calls, last);
    ASSERT_NE(validator_.AuditException(), nullptr);
    EXPECT_EQ(validator_.AuditException()->Number(), ReadingAborted);
    EXPECT_EQ(validator_.AuditException()->Source(), "AuditFileValidator.ValidateAuditFile");
    EXPECT_EQ(validator_.AuditException()->Description(), "Leitura do ficheiro abortada pelo utilizador.");
    EXPECT_FALSE(validator_.IsSchemaAtFault());
    EXPECT_LE(validator_.Violations(), found);
  }
}

TEST_F(AuditFileValidatorTest, WhatProgressThrowsIsAFailure) {
  validator_.Progress = [](int64_t) -> bool { throw std::runtime_error("enough"); };
  EXPECT_FALSE(Validate(Complete()));
  EXPECT_THAT(validator_.AuditException()->Description(), HasSubstr("enough"));
}

TEST_F(AuditFileValidatorTest, WithoutAFunctionViolationsAreCounted) {
  validator_.Found = nullptr;
  EXPECT_TRUE(Validate(With("<InvoiceStatus>N<", "<InvoiceStatus>X<")));
  EXPECT_EQ(validator_.Violations(), 1);
}

TEST_F(AuditFileValidatorTest, WhatTheFunctionThrowsIsAFailure) {
  validator_.Found = [](const Violation&) -> bool { throw Error(6, "Host", "enough"); };
  EXPECT_FALSE(Validate(With("<InvoiceStatus>N<", "<InvoiceStatus>X<")));
  EXPECT_EQ(validator_.AuditException()->Number(), 6);
  EXPECT_EQ(validator_.AuditException()->Description(), "enough");
}

TEST_F(AuditFileValidatorTest, WithoutAFileNameItFails) {
  EXPECT_FALSE(validator_.ValidateAuditFile());
  EXPECT_EQ(validator_.AuditException()->Number(), kErrorBase + 1);
  EXPECT_EQ(validator_.AuditException()->Source(), "AuditFileValidator.ValidateAuditFile");
}

TEST_F(AuditFileValidatorTest, WithoutAFileItFails) {
  validator_.set_AuditFileName(folder_.Path("none.xml"));
  EXPECT_FALSE(validator_.ValidateAuditFile());
  EXPECT_EQ(validator_.AuditException()->Number(), kErrorBase + 2);
  EXPECT_FALSE(validator_.IsSchemaAtFault());
}

TEST_F(AuditFileValidatorTest, AFileInAFolderThatMayNotBeSearchedIsToldAsSuch) {
  validator_.set_AuditFileSchema("");
  std::filesystem::create_directory(folder_.Path("closed"));
  const std::string path = folder_.Write("closed/file.xml", Complete());
  std::filesystem::permissions(folder_.Path("closed"), std::filesystem::perms::none);
  const std::string told = testing::InChildProcess([&] {
    testing::DropPrivileges();
    validator_.set_AuditFileName(path);
    if (validator_.ValidateAuditFile()) return std::string("validated");
    const AuditException& error = *validator_.AuditException();
    return std::to_string(error.Number() - kErrorBase) + " " + error.Description() + " | " +
           Describe(error, Language::kEnglish);
  });
  std::filesystem::permissions(folder_.Path("closed"), std::filesystem::perms::owner_all);
  EXPECT_EQ(told, "2 Ficheiro SAFT-PT não encontrado: não há permissão para chegar a " + path +
                      ". | There is no permission to reach the SAFT-PT file " + path + ".");
}

TEST_F(AuditFileValidatorTest, WithoutAUsableSchemaItFails) {
  for (const std::string& schema : {folder_.Path("none.xsd"), folder_.Write("bad.xsd", "<schema/>")}) {
    validator_.set_AuditFileSchema(schema);
    EXPECT_FALSE(Validate(Complete()));
    EXPECT_TRUE(validator_.IsSchemaAtFault());
    EXPECT_THAT(validator_.AuditException()->Description(), HasSubstr(schema));
    EXPECT_EQ(validator_.AuditException()->Source(), "AuditFileValidator.ValidateAuditFile");
  }
}

TEST_F(AuditFileValidatorTest, AFileThatIsNotWellFormedCannotBeJudged) {
  const std::string document = Complete();
  EXPECT_FALSE(Validate(document.substr(0, document.size() / 2)));
  EXPECT_THAT(violations_, IsEmpty());
  EXPECT_THAT(validator_.AuditException()->Description(), HasSubstr("(linha "));
}

TEST_F(AuditFileValidatorTest, ViolationsBeforeWhatIsNotWellFormedAreTold) {
  const std::string document = With("<CustomerTaxID>502222222<", "<CustomerTaxID><");
  EXPECT_FALSE(Validate(document.substr(0, document.size() / 2)));
  EXPECT_THAT(Sentences(), ElementsAre(HasSubstr("CustomerTaxID")));
  EXPECT_NE(validator_.AuditException(), nullptr);
}

// xsi:type and xsi:nil change what the schema says of an element.
TEST_F(AuditFileValidatorTest, BehindWhatItCannotFollowLibxml2Tells) {
  std::string document = With("<CustomerTaxID>502222222<", "<CustomerTaxID><");
  document =
      With("<Hash>", "<Hash xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:nil=\"true\">", document);
  ASSERT_TRUE(Validate(document));
  ASSERT_GE(violations_.size(), 2U);
  EXPECT_EQ(violations_[0].path, "CustomerTaxID");
  EXPECT_EQ(violations_[1].path, "");
  EXPECT_THAT(violations_[1].value, HasSubstr("nil"));
  EXPECT_GT(violations_[1].place.line, violations_[0].place.line);
}

TEST_F(AuditFileValidatorTest, OfASchemaThatItCannotFollowLibxml2Tells) {
  validator_.set_AuditFileSchema(folder_.Write(
      "own.xsd",
      R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:OECD:StandardAuditFile-Tax:PT_1.01_01">
           <xs:element name="AuditFile"><xs:complexType><xs:all>
             <xs:element name="a" type="xs:int"/></xs:all></xs:complexType></xs:element></xs:schema>)"));
  ASSERT_TRUE(
      Validate(R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><a xmlns="">x</a></AuditFile>)"));
  ASSERT_THAT(violations_, SizeIs(1));
  EXPECT_EQ(violations_[0].kind, std::nullopt);
  EXPECT_EQ(violations_[0].path, "");
  EXPECT_THAT(violations_[0].value, HasSubstr("'x'"));
  EXPECT_THAT(Sentences(), ElementsAre(HasSubstr("(linha 1, coluna ")));
}

// The verdict and the number of the first violation are those of the façade that stops there.
TEST_F(AuditFileValidatorTest, AgreesWithTheFirstViolationOfAuditFile) {
  const std::string document = With("<InvoiceStatus>N<", "<InvoiceStatus>X<");
  ASSERT_TRUE(Validate(document));
  AuditFile file;
  file.set_AuditFileName(validator_.AuditFileName());
  ASSERT_FALSE(file.ValidateAuditFile());
  EXPECT_EQ(violations_.at(0).number, file.AuditException()->Number());
}

}  // namespace
}  // namespace zevo
