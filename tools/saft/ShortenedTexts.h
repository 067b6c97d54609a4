#ifndef ZEVO_TOOLS_SAFT_SHORTENEDTEXTS_H_
#define ZEVO_TOOLS_SAFT_SHORTENEDTEXTS_H_

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/CsvFile.h"

namespace zevo::saft {

/// The texts of a dataset that were longer than the schema allows: how many, and where the first few stand.
class ShortenedTexts {
 public:
  /// A text that a cell held and the property does not, and what it holds instead.
  void Add(const CsvFile& file, size_t column, std::string_view kept);

  /// Writes nothing when there are none.
  void Report(std::ostream& out) const;

 private:
  static constexpr size_t kNamed = 5;

  size_t count_ = 0;
  std::vector<std::string> places_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SHORTENEDTEXTS_H_
