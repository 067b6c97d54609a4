// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/HeaderDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Layout.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Header";

// The web address is read under a name that is never written, so it reads back empty; hosts know it so.
struct WebsiteRow {
  void Write(const Header& value, Element header, IDALHelper& helper) const {
    helper.CreateElement("Website", value.Website(), header, false);
  }
  void Read(Header& value, ElementTexts& texts, Element, IDALReader&) const { value.set_Website(texts["WebSite"]); }
};

using H = Header;
constexpr Layout kHeader(
    Row("AuditFileVersion", kAlways, &H::AuditFileVersion),  //
    Row("CompanyID", kAlways, &H::CompanyID, &H::set_CompanyID),
    Row("TaxRegistrationNumber", kAlways, &H::TaxRegistrationNumber, &H::set_TaxRegistrationNumber),
    Row("TaxAccountingBasis", kAlways, &H::TaxAccountingBasis, &H::set_TaxAccountingBasis),
    Row("CompanyName", kAlways, &H::CompanyName, &H::set_CompanyName), Row("BusinessName", kAlways, &H::BusinessName),
    OwnedAddress("CompanyAddress", &H::CompanyAddress), Row("FiscalYear", kAlways, &H::FiscalYear, &H::set_FiscalYear),
    Row("StartDate", kAlways, &H::StartDate, &H::set_StartDate), Row("EndDate", kAlways, &H::EndDate, &H::set_EndDate),
    Row("CurrencyCode", kAlways, &H::CurrencyCode, &H::set_CurrencyCode),
    Row("DateCreated", kAlways, &H::DateCreated, &H::set_DateCreated), Row("TaxEntity", kAlways, &H::TaxEntity),
    Row("ProductCompanyTaxID", kAlways, &H::ProductCompanyTaxId),
    Row("SoftwareCertificateNumber", kAlways, &H::SoftwareCertificateNumber),
    Row("ProductID", kAlways, &H::ProductID, &H::set_ProductID),
    Row("ProductVersion", kAlways, &H::ProductVersion, &H::set_ProductVersion),
    ReadLast(Row("HeaderComment", kIfNotEmpty, &H::HeaderComment, &H::set_HeaderComment)),
    Row("Telephone", kIfNotEmpty, &H::Telephone, &H::set_Telephone),  //
    Row("Fax", kIfNotEmpty, &H::Fax, &H::set_Fax),                    //
    Row("Email", kIfNotEmpty, &H::Email, &H::set_Email),              //
    WebsiteRow());

}  // namespace

void HeaderDALC::CreateHeader(const Header& value, IDALHelper& helper) {
  if (helper.GetElement(kElement.Text(), {}, {})) {
    throw LibraryError(Message::kHeaderExists, "HeaderDALC.CreateHeader");
  }
  kHeader.Write(value, helper.CreateElement(kElement.Text(), {}, {}, true), helper);
  helper.EndElement(kElement.Text());
}

void HeaderDALC::ReadHeader(std::shared_ptr<Header>& value, IDALReader& helper) {
  value = nullptr;
  const Element header = helper.GetElement(kElement.Text(), {}, {});
  if (!header) throw LibraryError(Message::kHeaderMissing, "HeaderDALC.ReadHeader");
  value = std::make_shared<Header>();
  kHeader.Read(*value, header, helper);
}

}  // namespace zevo
