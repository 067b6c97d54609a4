#include <zevo/model/AddressStructure.h>

namespace zevo {

AddressStructure::AddressStructure() { set_Country("PT"); }

AddressStructure::~AddressStructure() = default;

}  // namespace zevo
