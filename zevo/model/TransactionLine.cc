#include <zevo/model/TransactionLine.h>

namespace zevo {

TransactionLine::TransactionLine() = default;

TransactionLine::~TransactionLine() = default;

}  // namespace zevo
