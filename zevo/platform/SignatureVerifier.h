// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SIGNATUREVERIFIER_H_
#define ZEVO_PLATFORM_SIGNATUREVERIFIER_H_

#include <zevo/platform/PublicKey.h>

#include <memory>
#include <string_view>

namespace zevo {

/// Verifies signatures of one key: RSA with the padding of PKCS #1 v1.5 over SHA-1. An object is used by one thread at
/// a time.
class SignatureVerifier {
 public:
  /// Raises error 5 for numbers that are no key.
  explicit SignatureVerifier(const PublicKey& key);
  SignatureVerifier(SignatureVerifier&& other) noexcept;
  SignatureVerifier& operator=(SignatureVerifier&& other) noexcept;
  ~SignatureVerifier();

  /// Whether the bytes of `signature` are the key's signature of the message.
  bool Verifies(std::string_view message, std::string_view signature) const;

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SIGNATUREVERIFIER_H_
