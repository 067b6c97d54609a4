#include <zevo/model/TaxTable.h>

namespace zevo {

TaxTable::TaxTable() = default;

TaxTable::~TaxTable() = default;

}  // namespace zevo
