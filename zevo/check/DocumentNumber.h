// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_DOCUMENTNUMBER_H_
#define ZEVO_CHECK_DOCUMENTNUMBER_H_

#include <optional>
#include <string_view>

namespace zevo {

/// The parts of an InvoiceNo, such as "FT A/12": views of the text.
struct DocumentNumber {
  std::string_view series;  ///< internal code and series, all before the last "/": "FT A"
  std::string_view code;    ///< the internal code: "FT"
  std::string_view name;    ///< the series behind it, perhaps empty: "A"
  std::string_view digits;  ///< the number as it is written: "12", "0012"

  /// Nothing where there is no internal code with a space behind it, no "/", or no whole number at the end.
  static std::optional<DocumentNumber> FromText(std::string_view text);

  /// The digits without zeros in front; empty for the number 0.
  std::string_view Significant() const;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_DOCUMENTNUMBER_H_
