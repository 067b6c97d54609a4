// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Face.h>

namespace zevo::component {
namespace {

class AddressStructureFace final : public Face<zevo::AddressStructure> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(BuildingNumber)
  ZEVO_PROPERTY(StreetName)
  ZEVO_PROPERTY(AddressDetail)
  ZEVO_PROPERTY(City)
  ZEVO_PROPERTY(PostalCode)
  ZEVO_PROPERTY(Region)
  ZEVO_PROPERTY(Country)
};

class HeaderFace final : public Face<zevo::Header> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(CompanyID)
  ZEVO_PROPERTY(TaxRegistrationNumber)
  ZEVO_PROPERTY(TaxAccountingBasis)
  ZEVO_PROPERTY(CompanyName)
  ZEVO_PROPERTY(BusinessName)
  ZEVO_PROPERTY(FiscalYear)
  ZEVO_PROPERTY(StartDate)
  ZEVO_PROPERTY(EndDate)
  ZEVO_PROPERTY(CurrencyCode)
  ZEVO_PROPERTY(DateCreated)
  ZEVO_PROPERTY(TaxEntity)
  ZEVO_PROPERTY(SoftwareCertificateNumber)
  ZEVO_PROPERTY(ProductID)
  ZEVO_PROPERTY(ProductVersion)
  ZEVO_PROPERTY(Telephone)
  ZEVO_PROPERTY(Fax)
  ZEVO_PROPERTY(Email)
  ZEVO_PROPERTY(Website)
  ZEVO_PROPERTY(HeaderComment)
  ZEVO_READ_ONLY(AuditFileVersion)
  ZEVO_READ_ONLY(ProductCompanyTaxId)
  ZEVO_READ_ONLY(CompanyAddress)
};

class GeneralLedgerFace final : public Face<zevo::GeneralLedger> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(AccountID)
  ZEVO_PROPERTY(AccountDescription)
  ZEVO_PROPERTY(OpeningDebitBalance)
  ZEVO_PROPERTY(OpeningCreditBalance)
};

class CustomerFace final : public Face<zevo::Customer> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(CustomerID)
  ZEVO_PROPERTY(AccountID)
  ZEVO_PROPERTY(CustomerTaxID)
  ZEVO_PROPERTY(CompanyName)
  ZEVO_PROPERTY(Contact)
  ZEVO_PROPERTY(Telephone)
  ZEVO_PROPERTY(Fax)
  ZEVO_PROPERTY(Email)
  ZEVO_PROPERTY(Website)
  ZEVO_PROPERTY(SelfBillingIndicator)
  ZEVO_READ_ONLY(BillingAddress)
  ZEVO_REFERENCE(ShipToAddress)
};

class SupplierFace final : public Face<zevo::Supplier> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(SupplierID)
  ZEVO_PROPERTY(AccountID)
  ZEVO_PROPERTY(SupplierTaxID)
  ZEVO_PROPERTY(CompanyName)
  ZEVO_PROPERTY(Contact)
  ZEVO_PROPERTY(Telephone)
  ZEVO_PROPERTY(Fax)
  ZEVO_PROPERTY(Email)
  ZEVO_PROPERTY(Website)
  ZEVO_PROPERTY(SelfBillingIndicator)
  ZEVO_READ_ONLY(BillingAddress)
  ZEVO_REFERENCE(ShipToAddress)
  ZEVO_REFERENCE(ShipFromAddress)
};

class ProductFace final : public Face<zevo::Product> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(ProductType)
  ZEVO_PROPERTY(ProductCode)
  ZEVO_PROPERTY(ProductGroup)
  ZEVO_PROPERTY(ProductDescription)
  ZEVO_PROPERTY(ProductNumberCode)
};

class TaxTableEntryFace final : public Face<zevo::TaxTableEntry> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(TaxCountryRegion)
  ZEVO_PROPERTY(TaxCode)
  ZEVO_PROPERTY(Description)
  ZEVO_PROPERTY(TaxExpirationDate)
  ZEVO_PROPERTY(TaxPercentage)
  ZEVO_PROPERTY(TaxAmount)
  ZEVO_READ_ONLY(TaxType)
};

class TaxTableFace final : public Face<zevo::TaxTable> {
 public:
  using Face::Face;
  ZEVO_READ_ONLY(TaxTableEntry)
};

}  // namespace

ZEVO_FACE_OF(AddressStructure);
ZEVO_FACE_OF(Header);
ZEVO_FACE_OF(GeneralLedger);
ZEVO_FACE_OF(Customer);
ZEVO_FACE_OF(Supplier);
ZEVO_FACE_OF(Product);
ZEVO_FACE_OF(TaxTableEntry);
ZEVO_FACE_OF(TaxTable);

}  // namespace zevo::component
