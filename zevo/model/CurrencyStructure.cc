#include <zevo/model/CurrencyStructure.h>

namespace zevo {

CurrencyStructure::CurrencyStructure() = default;

CurrencyStructure::~CurrencyStructure() = default;

}  // namespace zevo
