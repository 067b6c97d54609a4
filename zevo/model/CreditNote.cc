#include <zevo/model/CreditNote.h>

namespace zevo {

CreditNote::CreditNote() = default;

CreditNote::~CreditNote() = default;

}  // namespace zevo
