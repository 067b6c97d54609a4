// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/windows/RsaKey.h>

#include <zevo/Error.h>

#include <new>
#include <string>

namespace zevo {
namespace {

struct DestroyHash {
  void operator()(void* handle) const { BCryptDestroyHash(handle); }
};

PUCHAR BytesOf(std::string_view text) { return reinterpret_cast<PUCHAR>(const_cast<char*>(text.data())); }

ULONG SizeOf(std::string_view text) { return static_cast<ULONG>(text.size()); }

}  // namespace

RsaKey::Algorithm RsaKey::Opened(const wchar_t* name) {
  BCRYPT_ALG_HANDLE handle = nullptr;
  if (!BCRYPT_SUCCESS(BCryptOpenAlgorithmProvider(&handle, name, nullptr, 0))) throw std::bad_alloc();
  return Algorithm(handle);
}

RsaKey::RsaKey(const wchar_t* kind, ULONG number, std::string_view exponent, std::string_view modulus,
               std::string_view prime1, std::string_view prime2)
    : rsa_(Opened(BCRYPT_RSA_ALGORITHM)), sha1_(Opened(BCRYPT_SHA1_ALGORITHM)), size_(modulus.size()) {
  BCRYPT_RSAKEY_BLOB head{};
  head.Magic = number;
  head.BitLength = SizeOf(modulus) * 8;
  head.cbPublicExp = SizeOf(exponent);
  head.cbModulus = SizeOf(modulus);
  head.cbPrime1 = SizeOf(prime1);
  head.cbPrime2 = SizeOf(prime2);
  std::string blob(reinterpret_cast<const char*>(&head), sizeof head);
  blob.append(exponent).append(modulus).append(prime1).append(prime2);
  BCRYPT_KEY_HANDLE key = nullptr;
  if (!BCRYPT_SUCCESS(BCryptImportKeyPair(rsa_.get(), nullptr, kind, &key, BytesOf(blob), SizeOf(blob), 0))) {
    throw MakeRunTimeError(RunTimeError::kInvalidCall);
  }
  key_.reset(key);
}

RsaKey::Digest RsaKey::DigestOf(std::string_view message) const {
  Digest digest{};
  BCRYPT_HASH_HANDLE handle = nullptr;
  if (!BCRYPT_SUCCESS(BCryptCreateHash(sha1_.get(), &handle, nullptr, 0, nullptr, 0, 0))) throw std::bad_alloc();
  const std::unique_ptr<void, DestroyHash> hash(handle);
  if (!BCRYPT_SUCCESS(BCryptHashData(handle, BytesOf(message), SizeOf(message), 0)) ||
      !BCRYPT_SUCCESS(BCryptFinishHash(handle, digest.data(), static_cast<ULONG>(digest.size()), 0))) {
    throw std::bad_alloc();
  }
  return digest;
}

}  // namespace zevo
