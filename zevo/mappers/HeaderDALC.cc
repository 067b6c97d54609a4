// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/HeaderDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Layout.h>

namespace zevo {
namespace {

constexpr ElementName kHeader = "Header";

constexpr auto kHeaderLayout = LayoutFor<Header>(Rows{
    ZEVO_ROW(AuditFileVersion, kAlways, NotReadBack::kConstant),
    ZEVO_ROW(CompanyID, kAlways),
    ZEVO_ROW(TaxRegistrationNumber, kAlways),
    ZEVO_ROW(TaxAccountingBasis, kAlways),
    ZEVO_ROW(CompanyName, kAlways),
    ZEVO_ROW(BusinessName, kAlways, NotReadBack::kKeepsDefault),
    ZEVO_ROW(CompanyAddress, OwnedAddress()),
    ZEVO_ROW(FiscalYear, kAlways),
    ZEVO_ROW(StartDate, kAlways),
    ZEVO_ROW(EndDate, kAlways),
    ZEVO_ROW(CurrencyCode, kAlways),
    ZEVO_ROW(DateCreated, kAlways),
    ZEVO_ROW(TaxEntity, kAlways, NotReadBack::kKeepsDefault),
    ZEVO_ROW_AS("ProductCompanyTaxID", ProductCompanyTaxId, kAlways, NotReadBack::kConstant),
    ZEVO_ROW(SoftwareCertificateNumber, kAlways, NotReadBack::kKeepsDefault),
    ZEVO_ROW(ProductID, kAlways),
    ZEVO_ROW(ProductVersion, kAlways),
    ReadLast{ZEVO_ROW(HeaderComment, kIfNotEmpty)},
    ZEVO_ROW(Telephone, kIfNotEmpty),
    ZEVO_ROW(Fax, kIfNotEmpty),
    ZEVO_ROW(Email, kIfNotEmpty),
    // Written under one name and read under another, so it always reads back empty. It stays: hosts rely on it.
    ZEVO_ROW(Website, kIfNotEmpty, ReadAs{"WebSite"}),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<Header>() {
  return DataOf<kHeaderLayout>();
}

void HeaderDALC::CreateHeader(const Header& value, IDALHelper& writer) {
  if (writer.GetElement(kHeader, {}, {})) {
    throw LibraryError(Message::kHeaderExists, "HeaderDALC.CreateHeader");
  }
  kHeaderLayout.Write(value, writer.CreateElement(kHeader, {}, {}, true), writer);
  writer.EndElement(kHeader);
}

void HeaderDALC::ReadHeader(std::shared_ptr<Header>& value, IDALReader& reader) {
  value = nullptr;
  const Element header = reader.GetElement(kHeader, {});
  if (!header) throw LibraryError(Message::kHeaderMissing, "HeaderDALC.ReadHeader");
  value = std::make_shared<Header>();
  kHeaderLayout.Read(*value, header, reader);
}

}  // namespace zevo
