// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_DECIMALCOMMA_H_
#define ZEVO_TOOLS_SAFT_DATASET_DECIMALCOMMA_H_

#include <string>
#include <string_view>

namespace zevo::saft {

/// The number of a cell, written with a point, from a cell of a file that has decimal commas: "1234.56" of "1234,56",
/// "1.234,56", "1 234,56 €" and "€ 1 234,56". A point that can only be that of decimals is taken as such. Throws
/// `BadValue` for what is no number, and where a point may stand for decimals or for thousands.
std::string NumberWithPoint(std::string_view cell);

/// The same for a whole number, where a point may stand for thousands only. A text that is no number stays as it is.
std::string WholeNumber(std::string_view cell);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_DECIMALCOMMA_H_
