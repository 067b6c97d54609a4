// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PUBLICKEY_H_
#define ZEVO_PLATFORM_PUBLICKEY_H_

#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// The public half of an RSA key. Both numbers are bytes, the greatest first, without zeros in front.
struct PublicKey {
  std::string modulus;
  std::string exponent;

  /// From a PEM text: "PUBLIC KEY", which says what kind of key it is, or "RSA PUBLIC KEY". Nothing for any other text
  /// and for keys of another kind.
  static std::optional<PublicKey> FromPem(std::string_view pem);
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PUBLICKEY_H_
