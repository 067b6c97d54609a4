// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_SHIPPINGPOINTDALC_H_
#define ZEVO_MAPPERS_SHIPPINGPOINTDALC_H_

#include <zevo/dal/ElementName.h>
#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/ShippingPointStructure.h>

#include <memory>

namespace zevo {

/// Writes and reads a shipping point under any element name.
class ShippingPointDALC {
 public:
  void CreateShippingPointStructure(ElementName name, const ShippingPointStructure& value, Element parent,
                                    IDALHelper& writer);
  /// Nothing when there is no such element.
  std::shared_ptr<ShippingPointStructure> ReadShippingPointStructure(ElementName name, Element parent,
                                                                     IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_SHIPPINGPOINTDALC_H_
