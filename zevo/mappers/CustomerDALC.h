// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_CUSTOMERDALC_H_
#define ZEVO_MAPPERS_CUSTOMERDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/Customer.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts the customers of the file.
class CustomerDALC {
 public:
  void CreateCustomer(const Customer& value, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left.
  /// Raises error 13 when SelfBillingIndicator is missing or no flag.
  void ReadCustomer(std::shared_ptr<Customer>& value, IDALReader& reader, bool first);
  int32_t Customers(IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_CUSTOMERDALC_H_
