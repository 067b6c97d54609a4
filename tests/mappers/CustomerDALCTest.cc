// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/CustomerDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/PartyContract.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace testing {
namespace {

struct CustomerDALCHarness {
  using Mapper = CustomerDALC;
  using Record = Customer;
  static constexpr auto kCreate = &Mapper::CreateCustomer;
  static constexpr auto kRead = &Mapper::ReadCustomer;
  static constexpr auto kCount = &Mapper::Customers;
  static constexpr std::string_view kElement = "Customer";
  static constexpr std::string_view kIdentifier = "CustomerID";
  static constexpr std::string_view kFlag = "<SelfBillingIndicator>0</SelfBillingIndicator>";
  static constexpr auto kFull = &FullCustomer;
  static constexpr auto kShipAddress = &Record::ShipToAddress;
  static constexpr std::string_view kShipAddressElement = "ShipToAddress";
};

INSTANTIATE_TYPED_TEST_SUITE_P(CustomerDALC, MasterRecordContract, CustomerDALCHarness);
INSTANTIATE_TYPED_TEST_SUITE_P(CustomerDALC, PartyContract, CustomerDALCHarness);

}  // namespace
}  // namespace testing

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
  CustomerDALC().CreateCustomer(*FullCustomer("C1"), helper_);
  EXPECT_EQ(Describe(*Read(ReadingBack())), Describe(*FullCustomer("C1")));
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

}  // namespace
}  // namespace zevo
