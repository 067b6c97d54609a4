#include <zevo/model/TaxTableEntry.h>

namespace zevo {

TaxTableEntry::TaxTableEntry() = default;

TaxTableEntry::~TaxTableEntry() = default;

}  // namespace zevo
