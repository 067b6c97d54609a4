#include <zevo/model/OrderReferences.h>

namespace zevo {

OrderReferences::OrderReferences() = default;

OrderReferences::~OrderReferences() = default;

}  // namespace zevo
