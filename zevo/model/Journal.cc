#include <zevo/model/Journal.h>

namespace zevo {

Journal::Journal() = default;

Journal::~Journal() = default;

}  // namespace zevo
