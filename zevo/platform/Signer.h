// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SIGNER_H_
#define ZEVO_PLATFORM_SIGNER_H_

#include <zevo/platform/PrivateKey.h>

#include <memory>
#include <string>
#include <string_view>

namespace zevo {

/// Signs with one key, what `SignatureVerifier` verifies. An object is used by one thread at a time.
class Signer {
 public:
  /// Raises error 5 for numbers that are no key.
  explicit Signer(const PrivateKey& key);
  Signer(Signer&& other) noexcept;
  Signer& operator=(Signer&& other) noexcept;
  ~Signer();

  /// The bytes of the message's signature, as many as the modulus has.
  std::string Sign(std::string_view message) const;

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SIGNER_H_
