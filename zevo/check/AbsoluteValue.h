// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_ABSOLUTEVALUE_H_
#define ZEVO_CHECK_ABSOLUTEVALUE_H_

#include <zevo/model/Decimal.h>

namespace zevo {

inline Decimal AbsoluteValue(const Decimal& number) { return number.IsNegative() ? -number : number; }

}  // namespace zevo

#endif  // ZEVO_CHECK_ABSOLUTEVALUE_H_
