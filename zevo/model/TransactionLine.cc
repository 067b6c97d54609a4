// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/TransactionLine.h>

namespace zevo {

TransactionLine::TransactionLine() = default;

TransactionLine::~TransactionLine() = default;
std::span<const Property> TransactionLine::Properties() const { return PropertiesOf<TransactionLine>(); }

}  // namespace zevo
