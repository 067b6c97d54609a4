// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/LetterCase.h>

#include <zevo/platform/Text.h>

namespace zevo {
namespace {

// Every letter pair of Windows-1252 outside ASCII takes two bytes in both cases.
void FoldPair(char& lead, char& trail) {
  if (lead == '\xC3' && Byte(trail) >= 0x80 && Byte(trail) <= 0x9E && Byte(trail) != 0x97) {  // À to Þ, without ×
    trail = static_cast<char>(Byte(trail) + 0x20);
  } else if (lead == '\xC5') {
    if (trail == '\x92' || trail == '\xA0' || trail == '\xBD') {  // Œ, Š, Ž
      ++trail;
    } else if (trail == '\xB8') {  // Ÿ
      lead = '\xC3';
      trail = '\xBF';
    }
  }
}

}  // namespace

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  for (size_t i = 0; i < folded.size(); ++i) {
    char& c = folded[i];
    if (c >= 'A' && c <= 'Z') {
      c = static_cast<char>(c + ('a' - 'A'));
    } else if ((c == '\xC3' || c == '\xC5') && i + 1 < folded.size()) {
      FoldPair(c, folded[i + 1]);
      ++i;
    }
  }
  return folded;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  return left == right || (left.size() == right.size() && FoldCase(left) == FoldCase(right));
}

}  // namespace zevo
