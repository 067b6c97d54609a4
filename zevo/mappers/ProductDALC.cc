// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/ProductDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kProduct = "Product";

constexpr auto kProductLayout = LayoutFor<Product>(Rows{
    ZEVO_ROW(ProductType, kAlways),
    ZEVO_ROW(ProductCode, kAlways),
    ZEVO_ROW(ProductGroup, kIfNotEmpty),
    ZEVO_ROW(ProductDescription, kAlways),
    ZEVO_ROW(ProductNumberCode, kAlways),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<Product>() {
  return DataOf<kProductLayout>();
}

void ProductDALC::CreateProduct(const Product& value, IDALHelper& writer) {
  CreateMasterRecord(kProductLayout, kProduct, value, writer);
}

void ProductDALC::ReadProduct(std::shared_ptr<Product>& value, IDALReader& reader, bool first) {
  ReadMasterRecord(kProductLayout, kProduct, value, reader, first);
}

int32_t ProductDALC::Products(IDALReader& reader) { return CountMasterRecords(kProduct, reader); }

}  // namespace zevo
