// SPDX-License-Identifier: Apache-2.0
#include <zevo/TextHash.h>

#include <zevo/platform/KeyedHash.h>

namespace zevo {

size_t TextHash::operator()(std::string_view text) const { return static_cast<size_t>(KeyedHash(text)); }

}  // namespace zevo
