#include <zevo/model/ShippingPointStructure.h>

namespace zevo {

ShippingPointStructure::ShippingPointStructure() = default;

ShippingPointStructure::~ShippingPointStructure() = default;

}  // namespace zevo
