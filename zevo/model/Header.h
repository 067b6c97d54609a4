// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_HEADER_H_
#define ZEVO_MODEL_HEADER_H_

#include <zevo/model/AddressStructure.h>
#include <zevo/model/Record.h>

namespace zevo {

/// The file's header: the taxpayer, the period, the currency and the program that produced the file.
class ZEVO_API Header : public Record {
  ZEVO_ENTITY(Header, kHeader);

  /// Commercial registration: the registry's name and the number, or the number alone. At most 50 characters.
  ZEVO_TEXT(CompanyID);

  /// The taxpayer's NIF, nine digits, without a country prefix.
  ZEVO_TEXT(TaxRegistrationNumber);

  /// What the file covers.
  ZEVO_CODE(TaxAccountingBasis, TaxAccountingBasis);

  /// Name of the taxpayer. At most 60 characters.
  ZEVO_TEXT(CompanyName);

  /// Trading name. At most 60 characters. Not read back.
  ZEVO_TEXT(BusinessName);

  /// Fiscal year, four digits: the year in which it begins.
  ZEVO_TEXT(FiscalYear);

  /// First day of the period that the file covers, yyyy-mm-dd.
  ZEVO_DATE(StartDate);

  /// Last day of the period that the file covers, yyyy-mm-dd.
  ZEVO_DATE(EndDate);

  /// Currency of the amounts. "EUR" from the start, the only value that the schema takes.
  ZEVO_TEXT(CurrencyCode);

  /// Day on which the file is produced, yyyy-mm-dd. The local day of creation from the start.
  ZEVO_DATE(DateCreated);

  /// Establishment that the file is about: "Global", "Sede" or its own code. At most 20 characters. Not read back.
  ZEVO_TEXT(TaxEntity);

  /// Number of the program's certificate, "0" without one. At most 20 characters. Not read back.
  ZEVO_TEXT(SoftwareCertificateNumber);

  /// Program and maker, as "program/maker". At most 255 characters.
  ZEVO_TEXT(ProductID);

  /// Version of the program. At most 30 characters.
  ZEVO_TEXT(ProductVersion);

  /// At most 20 characters.
  ZEVO_TEXT(Telephone);

  /// At most 20 characters.
  ZEVO_TEXT(Fax);

  /// At most 60 characters.
  ZEVO_TEXT(Email);

  /// At most 60 characters. Reads back empty from the files that the library writes.
  /// The letter case of the checked name is not that of the element; look-ups ignore it.
  ZEVO_TEXT_CHECKED_AS(Website, "WebSite");

  /// Free text. At most 255 characters.
  ZEVO_TEXT(HeaderComment);

  /// Version of the file layout that the library writes.
  ZEVO_CONSTANT(AuditFileVersion, "1.01_01");

  /// NIF of the maker of the library.
  ZEVO_CONSTANT(ProductCompanyTaxId, "500000000");

  /// Address of the taxpayer; a Portuguese one.
  ZEVO_OWNED(AddressStructure, CompanyAddress);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_HEADER_H_
