// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SignatureVerifier.h>

#include <zevo/platform/windows/RsaKey.h>

#include <string>

namespace zevo {

struct SignatureVerifier::State {
  RsaKey key;
};

SignatureVerifier::SignatureVerifier(const PublicKey& key)
    : state_(new State{RsaKey(BCRYPT_RSAPUBLIC_BLOB, BCRYPT_RSAPUBLIC_MAGIC, key.exponent, key.modulus, {}, {})}) {}
SignatureVerifier::SignatureVerifier(SignatureVerifier&& other) noexcept = default;
SignatureVerifier& SignatureVerifier::operator=(SignatureVerifier&& other) noexcept = default;
SignatureVerifier::~SignatureVerifier() = default;

bool SignatureVerifier::Verifies(std::string_view message, std::string_view signature) const {
  RsaKey::Digest digest = state_->key.DigestOf(message);
  std::string bytes(signature);
  BCRYPT_PKCS1_PADDING_INFO padding{BCRYPT_SHA1_ALGORITHM};
  return BCRYPT_SUCCESS(BCryptVerifySignature(state_->key.Handle(), &padding, digest.data(),
                                              static_cast<ULONG>(digest.size()), reinterpret_cast<PUCHAR>(bytes.data()),
                                              static_cast<ULONG>(bytes.size()), BCRYPT_PAD_PKCS1));
}

}  // namespace zevo
