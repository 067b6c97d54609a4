// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TEXTHASH_H_
#define ZEVO_TEXTHASH_H_

#include <zevo/Api.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zevo {

/// The hash for unordered containers whose keys are texts from outside, such as a file: it depends on a secret of the
/// process, so that nobody can make a file whose keys all share one place and take hours. It takes any text without
/// making a std::string of it. Not noexcept: containers then keep the hash of each key instead of computing it
/// again.
struct ZEVO_API TextHash {
  using is_transparent = void;
  /// The same for equal texts as long as the process runs, and another in the next process.
  size_t operator()(std::string_view text) const;
};

/// A table by texts; `find` takes a std::string_view.
template <class Value>
using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

}  // namespace zevo

#endif  // ZEVO_TEXTHASH_H_
