#include <zevo/model/Transaction.h>

namespace zevo {

Transaction::Transaction() = default;

Transaction::~Transaction() = default;

}  // namespace zevo
