// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_PUBLICKEYS_H_
#define ZEVO_CHECK_PUBLICKEYS_H_

#include <zevo/platform/PublicKey.h>
#include <zevo/platform/SignatureVerifier.h>

#include <cstdint>
#include <map>
#include <optional>

namespace zevo {

/// The keys that signatures of a file's documents may have been made with, by the versions that HashControl tells.
class PublicKeys {
 public:
  /// Version 0 is for all that have no key of their own. A key of the version that was there before is gone. Raises
  /// error 5 for numbers that are no key.
  void Add(int32_t version, const PublicKey& key);
  bool IsEmpty() const { return keys_.empty(); }
  /// The key of a version; without a version that for all. Null where there is none.
  const SignatureVerifier* Of(std::optional<int32_t> version) const;

 private:
  std::map<int32_t, SignatureVerifier> keys_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_PUBLICKEYS_H_
