#include <zevo/model/DocumentTotals.h>

namespace zevo {

DocumentTotals::DocumentTotals() = default;

DocumentTotals::~DocumentTotals() = default;

}  // namespace zevo
