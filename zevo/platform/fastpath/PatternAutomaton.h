// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_PATTERNAUTOMATON_H_
#define ZEVO_PLATFORM_FASTPATH_PATTERNAUTOMATON_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zevo {

/// A pattern of a schema as a table of states by bytes, which tells at a step a byte whether a text matches. It takes
/// no text that libxml2 refuses, and most that libxml2 takes: where a letter beyond ASCII meets a class that may or may
/// not have it, such as \w, libxml2 has to be asked.
class PatternAutomaton {
 public:
  /// Nothing for a pattern that is not read here, or would take too many states.
  static std::optional<PatternAutomaton> Of(std::string_view pattern);

  /// Whether the text, valid UTF-8, matches for certain.
  bool Takes(std::string_view text) const {
    size_t state = kStart;
    for (const char byte : text) state = next_[state + kind_of_[static_cast<unsigned char>(byte)]];
    return takes_[state];
  }

  /// Of the table.
  size_t Entries() const { return next_.size(); }

 private:
  class Reader;
  class Maker;

  static constexpr size_t kStart = 0;

  std::array<uint8_t, 256> kind_of_{};  // bytes that no state tells apart are of one kind
  std::vector<uint16_t> next_;          // a row for each state, of where each kind leads: where the row begins
  std::vector<bool> takes_;             // by where a row begins
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_PATTERNAUTOMATON_H_
