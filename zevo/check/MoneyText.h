// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_MONEYTEXT_H_
#define ZEVO_CHECK_MONEYTEXT_H_

#include <zevo/model/Decimal.h>

#include <string>

namespace zevo {

/// An amount as people write it, such as a sum that a finding tells: at least two decimals, and all that it has.
std::string MoneyText(const Decimal& amount);

}  // namespace zevo

#endif  // ZEVO_CHECK_MONEYTEXT_H_
