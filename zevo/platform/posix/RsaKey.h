// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_POSIX_RSAKEY_H_
#define ZEVO_PLATFORM_POSIX_RSAKEY_H_

#include <openssl/evp.h>

#include <array>
#include <initializer_list>
#include <memory>
#include <string_view>

namespace zevo {

/// An RSA key of OpenSSL, for signatures of PKCS #1 v1.5 over SHA-1. It has a context of its own, so that neither the
/// settings nor the providers that the host's OpenSSL has count.
class RsaKey {
 public:
  /// A number of the key, by OpenSSL's name of it.
  struct Number {
    const char* name;
    std::string_view bytes;  // the greatest first
  };
  using Digest = std::array<unsigned char, 20>;

  /// `selection` is what the numbers make, EVP_PKEY_PUBLIC_KEY or EVP_PKEY_KEYPAIR. Raises error 5 for numbers that are
  /// no key.
  RsaKey(std::initializer_list<Number> numbers, int selection);

  /// Makes it ready for `initialise`, EVP_PKEY_verify_init or EVP_PKEY_sign_init.
  void Prepare(int (*initialise)(EVP_PKEY_CTX*));

  EVP_PKEY_CTX* Context() const { return context_.get(); }
  /// How many bytes a signature has.
  size_t Size() const;
  /// The SHA-1 of a message.
  Digest DigestOf(std::string_view message) const;

 private:
  template <auto kFree>
  struct Free {
    template <class T>
    void operator()(T* object) const {
      kFree(object);
    }
  };

  std::unique_ptr<OSSL_LIB_CTX, Free<OSSL_LIB_CTX_free>> library_;
  std::unique_ptr<EVP_MD, Free<EVP_MD_free>> sha1_;
  std::unique_ptr<EVP_MD_CTX, Free<EVP_MD_CTX_free>> digest_;
  std::unique_ptr<EVP_PKEY, Free<EVP_PKEY_free>> key_;
  std::unique_ptr<EVP_PKEY_CTX, Free<EVP_PKEY_CTX_free>> context_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_POSIX_RSAKEY_H_
