// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PRIVATEKEY_H_
#define ZEVO_PLATFORM_PRIVATEKEY_H_

#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// An RSA key with both its halves. All numbers are bytes, the greatest first, without zeros in front.
struct PrivateKey {
  std::string modulus;
  std::string public_exponent;
  std::string private_exponent;
  std::string prime1;
  std::string prime2;
  std::string exponent1;    ///< the private exponent for the first prime
  std::string exponent2;    ///< and for the second
  std::string coefficient;  ///< the inverse of the second prime for the first

  /// From a PEM text: "PRIVATE KEY", which says what kind of key it is, or "RSA PRIVATE KEY", neither of them
  /// encrypted. Nothing for any other text and for keys of another kind.
  static std::optional<PrivateKey> FromPem(std::string_view pem);
  /// Whether a PEM text has a private key that cannot be read without its password.
  static bool IsEncrypted(std::string_view pem);
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PRIVATEKEY_H_
