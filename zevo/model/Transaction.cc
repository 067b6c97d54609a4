// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Transaction.h>

namespace zevo {

Transaction::Transaction() = default;

Transaction::~Transaction() = default;
std::span<const Property> Transaction::Properties() const { return PropertiesOf<Transaction>(); }

}  // namespace zevo
