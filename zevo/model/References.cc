#include <zevo/model/References.h>

namespace zevo {

References::References() = default;

References::~References() = default;

}  // namespace zevo
