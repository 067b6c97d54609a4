#include <zevo/mappers/CustomerDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullCustomer;
using testing::OneLine;

class CustomerDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<Customer> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<Customer> customer;
    CustomerDALC().ReadCustomer(customer, reader, first);
    return customer;
  }
};

TEST_F(CustomerDALCTest, WritesEveryProperty) {
  CustomerDALC().CreateCustomer(*FullCustomer(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <Customer>
          <CustomerID>C1</CustomerID>
          <AccountID>211</AccountID>
          <CustomerTaxID>999999990</CustomerTaxID>
          <CompanyName>Cliente</CompanyName>
          <Contact>Ana</Contact>
          <BillingAddress>
            <BuildingNumber>12</BuildingNumber>
            <StreetName>Rua A</StreetName>
            <AddressDetail>Rua A, 12</AddressDetail>
            <City>Faro</City>
            <PostalCode>1000-001</PostalCode>
            <Region>Lisboa</Region>
            <Country>ES</Country>
          </BillingAddress>
          <ShipToAddress>
            <BuildingNumber>12</BuildingNumber>
            <StreetName>Rua A</StreetName>
            <AddressDetail>Rua A, 12</AddressDetail>
            <City>Beja</City>
            <PostalCode>1000-001</PostalCode>
            <Region>Lisboa</Region>
            <Country>ES</Country>
          </ShipToAddress>
          <Telephone>21</Telephone>
          <Fax>22</Fax>
          <Email>a@b</Email>
          <Website>www</Website>
          <SelfBillingIndicator>1</SelfBillingIndicator>
        </Customer>
      </MasterFiles>)"));
}

TEST_F(CustomerDALCTest, CustomerWithItsMandatoryFieldsHasNoMoreThanThose) {
  Customer customer;
  customer.set_CustomerID("C1");
  customer.set_CustomerTaxID("9");
  CustomerDALC().CreateCustomer(customer, helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <Customer>
          <CustomerID>C1</CustomerID>
          <AccountID/>
          <CustomerTaxID>9</CustomerTaxID>
          <CompanyName/>
          <BillingAddress>
            <AddressDetail/>
            <City/>
            <PostalCode/>
            <Country>PT</Country>
          </BillingAddress>
          <SelfBillingIndicator>0</SelfBillingIndicator>
        </Customer>
      </MasterFiles>)"));
}

TEST_F(CustomerDALCTest, ContactOfBlanksIsLeftOut) {
  Customer customer;
  customer.set_Contact("   ");
  CustomerDALC().CreateCustomer(customer, helper_);
  EXPECT_EQ(Written().find("Contact"), std::string::npos);
}

TEST_F(CustomerDALCTest, SecondCustomerReusesMasterFiles) {
  CustomerDALC().CreateCustomer(Customer(), helper_);
  CustomerDALC().CreateCustomer(Customer(), helper_);
  EXPECT_EQ(CustomerDALC().Customers(ReadingBack()), 2);
  EXPECT_EQ(Written().find("<MasterFiles>"), Written().rfind("<MasterFiles>"));
}

TEST_F(CustomerDALCTest, ReadsEveryProperty) {
  const auto customer = Read(Reading(OneLine(R"(
      <MasterFiles>
        <Customer>
          <CustomerID>a</CustomerID>
          <AccountID>b</AccountID>
          <CustomerTaxID>c</CustomerTaxID>
          <CompanyName>d &amp; e</CompanyName>
          <Contact>f</Contact>
          <BillingAddress><City>g</City><Country>PT</Country></BillingAddress>
          <ShipToAddress><City>h</City><Country>ES</Country></ShipToAddress>
          <Telephone>i</Telephone>
          <Fax>j</Fax>
          <Email>k</Email>
          <Website>l</Website>
          <SelfBillingIndicator>1</SelfBillingIndicator>
        </Customer>
      </MasterFiles>)")));
  ASSERT_TRUE(customer);
  EXPECT_EQ(Describe(*customer),
            "CustomerID=a\nAccountID=b\nCustomerTaxID=c\nCompanyName=d & e\nContact=f\nTelephone=i\nFax=j\nEmail=k\n"
            "Website=l\nSelfBillingIndicator=true\nBillingAddress.City=g\nBillingAddress.Country=PT\n"
            "ShipToAddress.City=h\nShipToAddress.Country=ES\n");
}

TEST_F(CustomerDALCTest, ReadsBackWhatItWrote) {
  CustomerDALC().CreateCustomer(*FullCustomer(), helper_);
  EXPECT_EQ(Describe(*Read(ReadingBack())), Describe(*FullCustomer()));
}

TEST_F(CustomerDALCTest, ShipToAddressIsNothingWhenTheFileHasNone) {
  const auto customer =
      Read(Reading("<MasterFiles><Customer><BillingAddress><City>g</City></BillingAddress>"
                   "<SelfBillingIndicator>0</SelfBillingIndicator></Customer></MasterFiles>"));
  EXPECT_EQ(customer->ShipToAddress(), nullptr);
}

TEST_F(CustomerDALCTest, SelfBillingIndicatorIsReadAsAFlag) {
  const std::vector<std::pair<std::string, bool>> cases = {
      {"1", true}, {"-1", true}, {"True", true}, {"False", false}, {"0", false}};
  for (const auto& [text, flag] : cases) {
    const auto customer = Read(Reading("<MasterFiles><Customer><SelfBillingIndicator>" + text +
                                       "</SelfBillingIndicator></Customer></MasterFiles>"));
    EXPECT_EQ(customer->SelfBillingIndicator(), flag) << text;
  }
}

TEST_F(CustomerDALCTest, SelfBillingIndicatorThatIsMissingOrNoFlagIsATypeMismatch) {
  for (const std::string_view element :
       {"", "<SelfBillingIndicator/>", "<SelfBillingIndicator>x</SelfBillingIndicator>",
        "<SelfBillingIndicator>Yes</SelfBillingIndicator>"}) {
    IDALReader& reader = Reading(std::string("<MasterFiles><Customer><CustomerID>1</CustomerID>")
                                     .append(element)
                                     .append("</Customer></MasterFiles>"));
    EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TEST_F(CustomerDALCTest, ReadsOneAfterTheOther) {
  IDALReader& reader = Reading(
      "<MasterFiles>"
      "<Customer><CustomerID>1</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer><Product/>"
      "<Customer><CustomerID>2</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer></MasterFiles>");
  EXPECT_EQ(Read(reader, true)->CustomerID(), "1");
  EXPECT_EQ(Read(reader, false)->CustomerID(), "2");
  EXPECT_EQ(Read(reader, false), nullptr);
}

TEST_F(CustomerDALCTest, GivesNothingWhereThereIsNone) {
  EXPECT_EQ(Read(Reading("")), nullptr);
  EXPECT_EQ(Read(Reading("<MasterFiles/>")), nullptr);
}

TEST_F(CustomerDALCTest, CountsUnderMasterFiles) {
  EXPECT_EQ(CustomerDALC().Customers(Reading("")), 0);
  EXPECT_EQ(CustomerDALC().Customers(Reading("<MasterFiles><Customer/><Customer/></MasterFiles>")), 2);
}

}  // namespace
}  // namespace zevo
