// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_WINDOWS_RSAKEY_H_
#define ZEVO_PLATFORM_WINDOWS_RSAKEY_H_

#include <windows.h>
// After windows.h.
#include <bcrypt.h>

#include <array>
#include <memory>
#include <string_view>

namespace zevo {

/// An RSA key of the system, for signatures of PKCS #1 v1.5 over SHA-1.
class RsaKey {
 public:
  using Digest = std::array<unsigned char, 20>;

  /// `kind` is what the numbers make, BCRYPT_RSAPUBLIC_BLOB with its number or BCRYPT_RSAPRIVATE_BLOB with its own, and
  /// with both primes, which are empty otherwise. Raises error 5 for numbers that are no key.
  RsaKey(const wchar_t* kind, ULONG number, std::string_view exponent, std::string_view modulus,
         std::string_view prime1, std::string_view prime2);

  BCRYPT_KEY_HANDLE Handle() const { return key_.get(); }
  /// How many bytes a signature has.
  size_t Size() const { return size_; }
  /// The SHA-1 of a message.
  Digest DigestOf(std::string_view message) const;

 private:
  struct CloseAlgorithm {
    void operator()(void* handle) const { BCryptCloseAlgorithmProvider(handle, 0); }
  };
  struct DestroyKey {
    void operator()(void* handle) const { BCryptDestroyKey(handle); }
  };
  using Algorithm = std::unique_ptr<void, CloseAlgorithm>;

  static Algorithm Opened(const wchar_t* name);

  Algorithm rsa_;
  Algorithm sha1_;
  std::unique_ptr<void, DestroyKey> key_;
  size_t size_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_WINDOWS_RSAKEY_H_
