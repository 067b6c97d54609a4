// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COLUMNS_PATTERNTEXTS_H_
#define ZEVO_TOOLS_SAFT_COLUMNS_PATTERNTEXTS_H_

#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// The texts that match a pattern of a schema, as far as they can be listed: those of "PT-(AC|MA)|[0-9]+" are PT-AC and
/// PT-MA, and there are others.
struct PatternTexts {
  std::vector<std::string> texts;
  bool others = false;
};

/// Those of a pattern. What has a quantifier, an escape, a "." or an excluding class is not listed, and neither is more
/// than people would read.
PatternTexts TextsOf(std::string_view pattern);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COLUMNS_PATTERNTEXTS_H_
