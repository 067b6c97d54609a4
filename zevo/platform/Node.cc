// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Node.h>

namespace zevo {

std::string_view Node::TextOfShort() const {
  return HoldsText() ? std::string_view(ShortText(), (tag >> kShortShift) - 1) : std::string_view();
}

}  // namespace zevo
