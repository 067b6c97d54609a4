// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Signer.h>

#include <zevo/Error.h>
#include <zevo/platform/windows/RsaKey.h>

namespace zevo {

struct Signer::State {
  RsaKey key;
};

Signer::Signer(const PrivateKey& key)
    : state_(new State{RsaKey(BCRYPT_RSAPRIVATE_BLOB, BCRYPT_RSAPRIVATE_MAGIC, key.public_exponent, key.modulus,
                              key.prime1, key.prime2)}) {}
Signer::Signer(Signer&& other) noexcept = default;
Signer& Signer::operator=(Signer&& other) noexcept = default;
Signer::~Signer() = default;

std::string Signer::Sign(std::string_view message) const {
  RsaKey::Digest digest = state_->key.DigestOf(message);
  BCRYPT_PKCS1_PADDING_INFO padding{BCRYPT_SHA1_ALGORITHM};
  std::string signature(state_->key.Size(), '\0');
  ULONG size = 0;
  if (!BCRYPT_SUCCESS(BCryptSignHash(state_->key.Handle(), &padding, digest.data(), static_cast<ULONG>(digest.size()),
                                     reinterpret_cast<PUCHAR>(signature.data()), static_cast<ULONG>(signature.size()),
                                     &size, BCRYPT_PAD_PKCS1))) {
    throw MakeRunTimeError(RunTimeError::kInvalidCall);
  }
  signature.resize(size);
  return signature;
}

}  // namespace zevo
