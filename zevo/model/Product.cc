#include <zevo/model/Product.h>

namespace zevo {

Product::Product() = default;

Product::~Product() = default;

}  // namespace zevo
