// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_INVOICEDALC_H_
#define ZEVO_MAPPERS_INVOICEDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/Invoice.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts sales documents.
class InvoiceDALC {
 public:
  /// Raises message 301 when the section is missing.
  void CreateInvoice(const Invoice& value, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left. Raises message 301 when
  /// the section is missing, and what reading a line raises.
  void ReadInvoice(std::shared_ptr<Invoice>& value, IDALReader& reader, bool first);
  /// Fills the slot with the invoice directly under the root of what the reader holds, or with nothing.
  void ReadFlatInvoice(std::shared_ptr<Invoice>& value, IDALReader& reader);
  int32_t Invoices(IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_INVOICEDALC_H_
