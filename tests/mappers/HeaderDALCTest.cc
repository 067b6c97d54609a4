// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/HeaderDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/dal/XmlTree.h"
#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullHeader;
using testing::NumberOf;
using testing::OneLine;

class HeaderDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<Header> Read(IDALReader& reader) {
    std::shared_ptr<Header> header;
    HeaderDALC().ReadHeader(header, reader);
    return header;
  }
};

TEST_F(HeaderDALCTest, WritesEveryProperty) {
  HeaderDALC().CreateHeader(*FullHeader(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <Header>
        <AuditFileVersion>1.01_01</AuditFileVersion>
        <CompanyID>Lisboa 1</CompanyID>
        <TaxRegistrationNumber>501234567</TaxRegistrationNumber>
        <TaxAccountingBasis>I</TaxAccountingBasis>
        <CompanyName>A &amp; B</CompanyName>
        <BusinessName>AB</BusinessName>
        <CompanyAddress>
          <BuildingNumber>12</BuildingNumber>
          <StreetName>Rua A</StreetName>
          <AddressDetail>Rua A, 12</AddressDetail>
          <City>Lisboa</City>
          <PostalCode>1000-001</PostalCode>
          <Region>Lisboa</Region>
          <Country>ES</Country>
        </CompanyAddress>
        <FiscalYear>2008</FiscalYear>
        <StartDate>2008-01-01</StartDate>
        <EndDate>2008-12-31</EndDate>
        <CurrencyCode>USD</CurrencyCode>
        <DateCreated>2009-01-15</DateCreated>
        <TaxEntity>Global</TaxEntity>
        <ProductCompanyTaxID>500000000</ProductCompanyTaxID>
        <SoftwareCertificateNumber>77</SoftwareCertificateNumber>
        <ProductID>P/M</ProductID>
        <ProductVersion>7.2</ProductVersion>
        <HeaderComment>comment</HeaderComment>
        <Telephone>21</Telephone>
        <Fax>22</Fax>
        <Email>a@b</Email>
        <Website>www</Website>
      </Header>)"));
}

TEST_F(HeaderDALCTest, DefaultHeaderHasItsSeventeenRequiredChildren) {
  Header header;
  header.set_DateCreated("2009-01-15");
  HeaderDALC().CreateHeader(header, helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <Header>
        <AuditFileVersion>1.01_01</AuditFileVersion>
        <CompanyID></CompanyID>
        <TaxRegistrationNumber></TaxRegistrationNumber>
        <TaxAccountingBasis></TaxAccountingBasis>
        <CompanyName></CompanyName>
        <BusinessName></BusinessName>
        <CompanyAddress>
          <AddressDetail></AddressDetail>
          <City></City>
          <PostalCode></PostalCode>
          <Country>PT</Country>
        </CompanyAddress>
        <FiscalYear></FiscalYear>
        <StartDate></StartDate>
        <EndDate></EndDate>
        <CurrencyCode>EUR</CurrencyCode>
        <DateCreated>2009-01-15</DateCreated>
        <TaxEntity></TaxEntity>
        <ProductCompanyTaxID>500000000</ProductCompanyTaxID>
        <SoftwareCertificateNumber></SoftwareCertificateNumber>
        <ProductID></ProductID>
        <ProductVersion></ProductVersion>
      </Header>)"));
  const auto root = testing::ParseXml(testing::ReadBytes(helper_.AuditFileName())).Child("AuditFile");
  EXPECT_EQ(root.Child("Header").children.size(), 17U);
}

TEST_F(HeaderDALCTest, FaxOfSpacesIsLeftOut) {
  Header header;
  header.set_Fax("  ");
  HeaderDALC().CreateHeader(header, helper_);
  EXPECT_EQ(Written().find("<Fax"), std::string::npos);
}

TEST_F(HeaderDALCTest, RequiredTextOfSpacesIsWrittenEmpty) {
  Header header;
  header.set_CompanyID("  ");
  header.set_ProductID(" P/M ");
  HeaderDALC().CreateHeader(header, helper_);
  EXPECT_NE(Written().find("<CompanyID></CompanyID>"), std::string::npos);
  EXPECT_NE(Written().find("<ProductID>P/M</ProductID>"), std::string::npos);
}

TEST_F(HeaderDALCTest, FollowsWhatTheFileHoldsAlready) {
  Begin("<MasterFiles/>");
  HeaderDALC().CreateHeader(Header(), helper_);
  EXPECT_TRUE(Written().starts_with("<MasterFiles/><Header>"));
}

TEST_F(HeaderDALCTest, SecondHeaderIsAnErrorAndWritesNothing) {
  Begin("<Header/>");
  EXPECT_ERROR(HeaderDALC().CreateHeader(*FullHeader(), helper_), NumberOf(Message::kHeaderExists),
               "HeaderDALC.CreateHeader");
  EXPECT_EQ(Written(), "<Header/>");
}

TEST_F(HeaderDALCTest, FailurePartWayLeavesWhatWasWrittenBefore) {
  const auto header = FullHeader();
  header->set_TaxRegistrationNumber("5\x01");
  EXPECT_ERROR(HeaderDALC().CreateHeader(*header, helper_), RunTimeError::kInvalidCall, kRunTimeSource);
  EXPECT_EQ(Written(), "<Header><AuditFileVersion>1.01_01</AuditFileVersion><CompanyID>Lisboa 1</CompanyID></Header>");
}

TEST_F(HeaderDALCTest, ReadsEveryPropertyButThoseThatAreWrittenOnly) {
  HeaderDALC().CreateHeader(*FullHeader(), helper_);
  const auto expected = FullHeader();
  expected->set_BusinessName("");
  expected->set_TaxEntity("");
  expected->set_SoftwareCertificateNumber("");
  expected->set_Website("");
  EXPECT_EQ(Describe(*Read(ReadingBack())), Describe(*expected));
}

TEST_F(HeaderDALCTest, ReadsFromXml) {
  const auto header = Read(Reading(OneLine(R"(
      <Header>
        <AuditFileVersion>9</AuditFileVersion>
        <CompanyID>a</CompanyID>
        <TaxRegistrationNumber>b</TaxRegistrationNumber>
        <TaxAccountingBasis>S</TaxAccountingBasis>
        <CompanyName>c &lt;d&gt;</CompanyName>
        <BusinessName>no</BusinessName>
        <CompanyAddress><City>e</City><Country>FR</Country></CompanyAddress>
        <FiscalYear>f</FiscalYear>
        <StartDate>g</StartDate>
        <EndDate>h</EndDate>
        <CurrencyCode>i</CurrencyCode>
        <DateCreated>j</DateCreated>
        <TaxEntity>no</TaxEntity>
        <ProductCompanyTaxID>no</ProductCompanyTaxID>
        <SoftwareCertificateNumber>no</SoftwareCertificateNumber>
        <ProductID>k</ProductID>
        <ProductVersion>l</ProductVersion>
        <HeaderComment>m</HeaderComment>
        <Telephone>n</Telephone>
        <Fax>o</Fax>
        <Email>p</Email>
        <WebSite>q</WebSite>
      </Header>)")));
  EXPECT_EQ(Describe(*header),
            "CompanyID=a\nTaxRegistrationNumber=b\nTaxAccountingBasis=95\nCompanyName=c <d>\nFiscalYear=f\n"
            "StartDate=g\nEndDate=h\nCurrencyCode=i\nDateCreated=j\nProductID=k\nProductVersion=l\nTelephone=n\n"
            "Fax=o\nEmail=p\nWebsite=q\nHeaderComment=m\nAuditFileVersion=1.01_01\nProductCompanyTaxId=500000000\n"
            "CompanyAddress.City=e\nCompanyAddress.Country=FR\n");
}

TEST_F(HeaderDALCTest, WebsiteReadsBackEmpty) {
  HeaderDALC().CreateHeader(*FullHeader(), helper_);
  ASSERT_NE(Written().find("<Website>www</Website>"), std::string::npos);
  EXPECT_EQ(Read(ReadingBack())->Website(), "");
}

TEST_F(HeaderDALCTest, WebsiteIsReadUnderTheNameThatOtherSoftwareMayWrite) {
  EXPECT_EQ(Read(Reading("<Header><WebSite>www</WebSite></Header>"))->Website(), "www");
}

TEST_F(HeaderDALCTest, BusinessNameIsNotRead) {
  EXPECT_EQ(Read(Reading("<Header><BusinessName>x</BusinessName></Header>"))->BusinessName(), "");
}

TEST_F(HeaderDALCTest, TaxEntityIsNotRead) {
  EXPECT_EQ(Read(Reading("<Header><TaxEntity>x</TaxEntity></Header>"))->TaxEntity(), "");
}

TEST_F(HeaderDALCTest, SoftwareCertificateNumberIsNotRead) {
  EXPECT_EQ(Read(Reading("<Header><SoftwareCertificateNumber>7</SoftwareCertificateNumber></Header>"))
                ->SoftwareCertificateNumber(),
            "");
}

TEST_F(HeaderDALCTest, ConstantsAreNotRead) {
  const auto header = Read(
      Reading("<Header><AuditFileVersion>9</AuditFileVersion><ProductCompanyTaxID>1</ProductCompanyTaxID></Header>"));
  EXPECT_EQ(header->AuditFileVersion(), "1.01_01");
  EXPECT_EQ(header->ProductCompanyTaxId(), "500000000");
}

TEST_F(HeaderDALCTest, MissingCurrencyCodeAndDateCreatedReplaceTheDefaults) {
  const auto header = Read(Reading("<Header/>"));
  EXPECT_EQ(header->CurrencyCode(), "");
  EXPECT_EQ(header->DateCreated(), "");
}

TEST_F(HeaderDALCTest, MissingAddressKeepsTheDefaultOne) {
  EXPECT_EQ(Describe(*Read(Reading("<Header/>"))->CompanyAddress()), "Country=PT\n");
}

TEST_F(HeaderDALCTest, TaxAccountingBasisIsReadByItsCodeWithRegardToCase) {
  const std::vector<std::pair<std::string, int>> cases = {{"C", 91}, {"F", 92}, {"I", 93}, {"P", 94},
                                                          {"S", 95}, {"c", 0},  {"CC", 0}, {"", 0}};
  for (const auto& [text, value] : cases) {
    const auto header = Read(Reading("<Header><TaxAccountingBasis>" + text + "</TaxAccountingBasis></Header>"));
    EXPECT_EQ(header->TaxAccountingBasis(), value) << text;
  }
}

TEST_F(HeaderDALCTest, TextsThatAreReadAreCutToTheirLengthAgain) {
  const testing::UseSchema schema;
  const auto header = Read(Reading("<Header><CompanyName>" + std::string(100, 'x') + "</CompanyName></Header>"));
  EXPECT_EQ(header->CompanyName(), std::string(60, 'x'));
}

TEST_F(HeaderDALCTest, MissingHeaderIsAnErrorAndEmptiesTheSlot) {
  auto header = FullHeader();
  IDALReader& reader = Reading("<MasterFiles/>");
  EXPECT_ERROR(HeaderDALC().ReadHeader(header, reader), NumberOf(Message::kHeaderMissing), "HeaderDALC.ReadHeader");
  EXPECT_EQ(header, nullptr);
}

TEST_F(HeaderDALCTest, SlotReceivesANewRecord) {
  const auto before = FullHeader();
  auto header = before;
  HeaderDALC().ReadHeader(header, Reading("<Header/>"));
  EXPECT_NE(header, before);
  EXPECT_EQ(before->CompanyID(), "Lisboa 1");
}

}  // namespace
}  // namespace zevo
