// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/SignedText.h>

#include <zevo/check/MoneyText.h>

namespace zevo {

std::string SignedText(std::string_view invoiceDate, std::string_view systemEntryDate, std::string_view invoiceNo,
                       const Decimal& grossTotal) {
  std::string text;
  text.append(invoiceDate).append(";").append(systemEntryDate).append(";").append(invoiceNo).append(";");
  return text.append(MoneyText(grossTotal.RoundedTo(2))).append(";");
}

}  // namespace zevo
