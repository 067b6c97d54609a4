// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/ProductDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/MasterRecordContract.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace testing {
namespace {

struct ProductDALCHarness {
  using Mapper = ProductDALC;
  using Record = Product;
  static constexpr auto kCreate = &Mapper::CreateProduct;
  static constexpr auto kRead = &Mapper::ReadProduct;
  static constexpr auto kCount = &Mapper::Products;
  static constexpr std::string_view kElement = "Product";
  static constexpr std::string_view kIdentifier = "ProductCode";
  static constexpr std::string_view kFlag = {};
};

INSTANTIATE_TYPED_TEST_SUITE_P(ProductDALC, MasterRecordContract, ProductDALCHarness);

}  // namespace
}  // namespace testing

namespace {

using testing::Describe;
using testing::FullProduct;
using testing::OneLine;

class ProductDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<Product> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<Product> product;
    ProductDALC().ReadProduct(product, reader, first);
    return product;
  }
};

TEST_F(ProductDALCTest, WritesEveryProperty) {
  ProductDALC().CreateProduct(*FullProduct(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <Product>
          <ProductType>S</ProductType>
          <ProductCode>P1</ProductCode>
          <ProductGroup>G</ProductGroup>
          <ProductDescription>Pao</ProductDescription>
          <ProductNumberCode>560</ProductNumberCode>
        </Product>
      </MasterFiles>)"));
}

TEST_F(ProductDALCTest, ProductWithoutTypeGetsAnEmptyElementAndReadsBackZero) {
  ProductDALC().CreateProduct(Product(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <Product>
          <ProductType></ProductType>
          <ProductCode></ProductCode>
          <ProductDescription></ProductDescription>
          <ProductNumberCode></ProductNumberCode>
        </Product>
      </MasterFiles>)"));
  EXPECT_EQ(Read(ReadingBack())->ProductType(), 0);
}

TEST_F(ProductDALCTest, TypesAreWrittenAndReadByTheirCode) {
  const std::vector<std::pair<int, std::string>> cases = {{51, "P"}, {52, "S"}, {53, "O"}, {54, "I"}};
  for (const auto& [value, code] : cases) {
    Begin("");
    Product product;
    product.set_ProductType(static_cast<ProductTypes>(value));
    ProductDALC().CreateProduct(product, helper_);
    EXPECT_NE(Written().find("<ProductType>" + code + "</ProductType>"), std::string::npos) << Written();
    EXPECT_EQ(Read(ReadingBack())->ProductType(), value);
  }
}

TEST_F(ProductDALCTest, TypeThatIsNoneIsWrittenEmpty) {
  for (const int value : {50, 55, -1, 41}) {
    Begin("");
    Product product;
    product.set_ProductType(static_cast<ProductTypes>(value));
    ProductDALC().CreateProduct(product, helper_);
    EXPECT_NE(Written().find("<ProductType></ProductType>"), std::string::npos) << value;
  }
}

TEST_F(ProductDALCTest, UnknownCodeReadsAsZero) {
  for (const std::string_view code : {"p", "X", "PS", ""}) {
    EXPECT_EQ(Read(Reading(std::string("<MasterFiles><Product><ProductType>")
                               .append(code)
                               .append("</ProductType></Product></MasterFiles>")))
                  ->ProductType(),
              0)
        << code;
  }
}

TEST_F(ProductDALCTest, ReadsEveryProperty) {
  const auto product = Read(Reading(OneLine(R"(
      <MasterFiles>
        <Product>
          <ProductType>I</ProductType>
          <ProductCode>a</ProductCode>
          <ProductGroup>b</ProductGroup>
          <ProductDescription>c</ProductDescription>
          <ProductNumberCode>d</ProductNumberCode>
        </Product>
      </MasterFiles>)")));
  ASSERT_TRUE(product);
  EXPECT_EQ(Describe(*product),
            "ProductType=54\nProductCode=a\nProductGroup=b\nProductDescription=c\nProductNumberCode=d\n");
}

}  // namespace
}  // namespace zevo
