// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/ProductDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Product";

using R = Product;
constexpr Layout kProduct(Row("ProductType", kAlways, &R::ProductType, &R::set_ProductType),
                          Row("ProductCode", kAlways, &R::ProductCode, &R::set_ProductCode),
                          Row("ProductGroup", kIfNotEmpty, &R::ProductGroup, &R::set_ProductGroup),
                          Row("ProductDescription", kAlways, &R::ProductDescription, &R::set_ProductDescription),
                          Row("ProductNumberCode", kAlways, &R::ProductNumberCode, &R::set_ProductNumberCode));

}  // namespace

void ProductDALC::CreateProduct(const Product& value, IDALHelper& helper) {
  CreateMasterRecord(kProduct, kElement, value, helper);
}

void ProductDALC::ReadProduct(std::shared_ptr<Product>& value, IDALReader& helper, bool first) {
  ReadMasterRecord(kProduct, kElement, value, helper, first);
}

int32_t ProductDALC::Products(IDALReader& helper) { return CountMasterRecords(kElement, helper); }

}  // namespace zevo
