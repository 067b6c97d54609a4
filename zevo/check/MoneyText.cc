// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/MoneyText.h>

namespace zevo {

std::string MoneyText(const Decimal& amount) {
  std::string text = amount.Text();
  const size_t decimals = amount.Decimals();
  if (decimals == 0) text += '.';
  if (decimals < 2) text.append(2 - decimals, '0');
  return text;
}

}  // namespace zevo
