// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SignatureVerifier.h>

#include <openssl/core_names.h>
#include <openssl/err.h>
#include <zevo/platform/posix/RsaKey.h>

namespace zevo {

struct SignatureVerifier::State {
  RsaKey key;
};

SignatureVerifier::SignatureVerifier(const PublicKey& key)
    : state_(new State{
          RsaKey({{OSSL_PKEY_PARAM_RSA_N, key.modulus}, {OSSL_PKEY_PARAM_RSA_E, key.exponent}}, EVP_PKEY_PUBLIC_KEY)}) {
  state_->key.Prepare(EVP_PKEY_verify_init);
}
SignatureVerifier::SignatureVerifier(SignatureVerifier&& other) noexcept = default;
SignatureVerifier& SignatureVerifier::operator=(SignatureVerifier&& other) noexcept = default;
SignatureVerifier::~SignatureVerifier() = default;

bool SignatureVerifier::Verifies(std::string_view message, std::string_view signature) const {
  const RsaKey::Digest digest = state_->key.DigestOf(message);
  ERR_set_mark();
  const int verified = EVP_PKEY_verify(state_->key.Context(), reinterpret_cast<const unsigned char*>(signature.data()),
                                       signature.size(), digest.data(), digest.size());
  // What OpenSSL keeps of a signature that is another is nothing for the host.
  ERR_pop_to_mark();
  return verified == 1;
}

}  // namespace zevo
