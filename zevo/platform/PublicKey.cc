// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/PublicKey.h>

#include <zevo/platform/Der.h>

namespace zevo {
namespace {

std::optional<PublicKey> RsaKeyOf(std::string_view der) {
  auto numbers = TakeDer(der, kDerSequence);
  if (!numbers || !der.empty()) return std::nullopt;
  auto modulus = TakeDerNumber(*numbers);
  if (!modulus || modulus->empty()) return std::nullopt;
  auto exponent = TakeDerNumber(*numbers);
  if (!exponent || exponent->empty() || !numbers->empty()) return std::nullopt;
  return PublicKey{*std::move(modulus), *std::move(exponent)};
}

// With the kind of the key in front.
std::optional<PublicKey> KeyOfAnyKind(std::string_view der) {
  auto parts = TakeDer(der, kDerSequence);
  if (!parts || !der.empty()) return std::nullopt;
  const auto kind = TakeDer(*parts, kDerSequence);
  if (!kind || !kind->starts_with(kDerRsaEncryption)) return std::nullopt;
  const auto bits = TakeDer(*parts, kDerBitString);
  if (!bits || !parts->empty() || bits->empty() || bits->front() != '\0') return std::nullopt;
  return RsaKeyOf(bits->substr(1));
}

}  // namespace

std::optional<PublicKey> PublicKey::FromPem(std::string_view pem) {
  if (const auto der = DerOfPem(pem, "PUBLIC KEY")) return KeyOfAnyKind(*der);
  if (const auto der = DerOfPem(pem, "RSA PUBLIC KEY")) return RsaKeyOf(*der);
  return std::nullopt;
}

}  // namespace zevo
