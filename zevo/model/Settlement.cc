#include <zevo/model/Settlement.h>

namespace zevo {

Settlement::Settlement() = default;

Settlement::~Settlement() = default;

}  // namespace zevo
