#include <zevo/model/Invoice.h>

namespace zevo {

Invoice::Invoice() = default;

Invoice::~Invoice() = default;

}  // namespace zevo
