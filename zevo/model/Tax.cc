#include <zevo/model/Tax.h>

namespace zevo {

Tax::Tax() = default;

Tax::~Tax() = default;

}  // namespace zevo
