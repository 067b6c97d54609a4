// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/PublicKeys.h>

namespace zevo {

void PublicKeys::Add(int32_t version, const PublicKey& key) { keys_.insert_or_assign(version, SignatureVerifier(key)); }

const SignatureVerifier* PublicKeys::Of(std::optional<int32_t> version) const {
  auto key = version ? keys_.find(*version) : keys_.end();
  if (key == keys_.end()) key = keys_.find(0);
  return key == keys_.end() ? nullptr : &key->second;
}

}  // namespace zevo
