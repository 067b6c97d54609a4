#include <zevo/model/GeneralLedger.h>

namespace zevo {

GeneralLedger::GeneralLedger() = default;

GeneralLedger::~GeneralLedger() = default;

}  // namespace zevo
