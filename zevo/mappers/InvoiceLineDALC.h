// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_INVOICELINEDALC_H_
#define ZEVO_MAPPERS_INVOICELINEDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/InvoiceLine.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes and reads the lines of a sales document.
class InvoiceLineDALC {
 public:
  void CreateInvoiceLine(const InvoiceLine& value, Element invoice, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left. Raises error 13 when
  /// LineNumber or Quantity is missing or no number.
  void ReadInvoiceLine(std::shared_ptr<InvoiceLine>& value, Element invoice, IDALReader& reader, bool first);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_INVOICELINEDALC_H_
