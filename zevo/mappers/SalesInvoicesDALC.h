// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_SALESINVOICESDALC_H_
#define ZEVO_MAPPERS_SALESINVOICESDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/SalesInvoices.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes and reads the totals of the sales invoices section.
class SalesInvoicesDALC {
 public:
  /// Begins the section. Raises message 302 when the file has it already.
  void CreateSalesInvoices(const SalesInvoices& value, IDALHelper& writer);
  /// Brings the totals in the file up to date. Raises message 301 when the section is missing.
  void UpdateSalesInvoices(const SalesInvoices& value, IDALHelper& writer);
  /// Raises message 301 when the section is missing, error 13 when the number of entries is no number.
  void ReadSalesInvoices(std::shared_ptr<SalesInvoices>& value, IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_SALESINVOICESDALC_H_
