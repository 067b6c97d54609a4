// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Node.h>

namespace zevo {

std::string_view Node::TextOfShort() const {
  if (!HoldsText() || tag >> kShortShift == kNothingBetween) return {};
  if (tag >> kShortShift == kIndentation) return {KeptIndentation(Name() & kTabs), Name() & (kTabs - 1)};
  return {ShortText(), (tag >> kShortShift) - 1};
}

}  // namespace zevo
