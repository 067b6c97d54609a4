// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_TOLDVIOLATION_H_
#define ZEVO_MODEL_INTERNAL_TOLDVIOLATION_H_

#include <zevo/model/Violation.h>

namespace zevo {

/// A violation of which libxml2's words are all that is known, taken apart.
struct ToldViolation {
  /// With the element as its path, and the value and what is allowed where the words have them.
  Violation violation;
  /// Whether the words were all understood. Otherwise there is the element at most.
  bool understood = false;
};

/// Reads the words, which are the value of `told`.
ToldViolation ReadTold(const Violation& told);

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_TOLDVIOLATION_H_
