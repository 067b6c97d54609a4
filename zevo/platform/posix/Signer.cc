// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Signer.h>

#include <openssl/core_names.h>
#include <zevo/Error.h>
#include <zevo/platform/posix/RsaKey.h>

namespace zevo {

struct Signer::State {
  RsaKey key;
};

Signer::Signer(const PrivateKey& key)
    : state_(new State{RsaKey({{OSSL_PKEY_PARAM_RSA_N, key.modulus},
                               {OSSL_PKEY_PARAM_RSA_E, key.public_exponent},
                               {OSSL_PKEY_PARAM_RSA_D, key.private_exponent},
                               {OSSL_PKEY_PARAM_RSA_FACTOR1, key.prime1},
                               {OSSL_PKEY_PARAM_RSA_FACTOR2, key.prime2},
                               {OSSL_PKEY_PARAM_RSA_EXPONENT1, key.exponent1},
                               {OSSL_PKEY_PARAM_RSA_EXPONENT2, key.exponent2},
                               {OSSL_PKEY_PARAM_RSA_COEFFICIENT1, key.coefficient}},
                              EVP_PKEY_KEYPAIR)}) {
  state_->key.Prepare(EVP_PKEY_sign_init);
}
Signer::Signer(Signer&& other) noexcept = default;
Signer& Signer::operator=(Signer&& other) noexcept = default;
Signer::~Signer() = default;

std::string Signer::Sign(std::string_view message) const {
  const RsaKey::Digest digest = state_->key.DigestOf(message);
  std::string signature(state_->key.Size(), '\0');
  size_t size = signature.size();
  if (EVP_PKEY_sign(state_->key.Context(), reinterpret_cast<unsigned char*>(signature.data()), &size, digest.data(),
                    digest.size()) != 1) {
    throw MakeRunTimeError(RunTimeError::kInvalidCall);
  }
  signature.resize(size);
  return signature;
}

}  // namespace zevo
