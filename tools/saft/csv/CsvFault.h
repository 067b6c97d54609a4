// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CSV_CSVFAULT_H_
#define ZEVO_TOOLS_SAFT_CSV_CSVFAULT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/saft/errors/Failure.h"

namespace zevo::saft {

/// What is wrong in a row of a CSV file; its text is the message.
class CsvFault : public Failure {
 public:
  /// The column is empty for a fault of the row as a whole.
  CsvFault(std::string_view file, int64_t row, std::string_view column, std::string_view reason)
      : Failure(file, row, reason), row_(row), column_(column) {}

  int64_t Row() const { return row_; }
  const std::string& Column() const { return column_; }

 private:
  int64_t row_;
  std::string column_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CSV_CSVFAULT_H_
