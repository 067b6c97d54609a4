// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/posix/RsaKey.h>

#include <openssl/bn.h>
#include <openssl/core_names.h>
#include <openssl/param_build.h>
#include <openssl/rsa.h>
#include <zevo/Error.h>

#include <new>
#include <vector>

namespace zevo {
namespace {

template <class T>
T* Made(T* object) {
  if (object == nullptr) throw std::bad_alloc();
  return object;
}

void RequireKey(bool key) {
  if (!key) throw MakeRunTimeError(RunTimeError::kInvalidCall);
}

struct FreeNumber {
  void operator()(BIGNUM* number) const { BN_clear_free(number); }
};
struct FreeBuilder {
  void operator()(OSSL_PARAM_BLD* builder) const { OSSL_PARAM_BLD_free(builder); }
};
struct FreeParameters {
  void operator()(OSSL_PARAM* parameters) const { OSSL_PARAM_free(parameters); }
};

const unsigned char* BytesOf(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }

}  // namespace

RsaKey::RsaKey(std::initializer_list<Number> numbers, int selection)
    : library_(Made(OSSL_LIB_CTX_new())),
      sha1_(Made(EVP_MD_fetch(library_.get(), "SHA1", nullptr))),
      digest_(Made(EVP_MD_CTX_new())) {
  std::vector<std::unique_ptr<BIGNUM, FreeNumber>> kept;
  const std::unique_ptr<OSSL_PARAM_BLD, FreeBuilder> builder(Made(OSSL_PARAM_BLD_new()));
  for (const Number& number : numbers) {
    kept.emplace_back(Made(BN_bin2bn(BytesOf(number.bytes), static_cast<int>(number.bytes.size()), nullptr)));
    RequireKey(OSSL_PARAM_BLD_push_BN(builder.get(), number.name, kept.back().get()) == 1);
  }
  const std::unique_ptr<OSSL_PARAM, FreeParameters> parameters(Made(OSSL_PARAM_BLD_to_param(builder.get())));
  context_.reset(Made(EVP_PKEY_CTX_new_from_name(library_.get(), "RSA", nullptr)));
  EVP_PKEY* key = nullptr;
  RequireKey(EVP_PKEY_fromdata_init(context_.get()) == 1 &&
             EVP_PKEY_fromdata(context_.get(), &key, selection, parameters.get()) == 1);
  key_.reset(key);
  context_.reset(Made(EVP_PKEY_CTX_new_from_pkey(library_.get(), key, nullptr)));
}

void RsaKey::Prepare(int (*initialise)(EVP_PKEY_CTX*)) {
  EVP_PKEY_CTX* const context = context_.get();
  RequireKey(initialise(context) == 1 && EVP_PKEY_CTX_set_rsa_padding(context, RSA_PKCS1_PADDING) == 1 &&
             EVP_PKEY_CTX_set_signature_md(context, sha1_.get()) == 1);
}

size_t RsaKey::Size() const { return static_cast<size_t>(EVP_PKEY_get_size(key_.get())); }

RsaKey::Digest RsaKey::DigestOf(std::string_view message) const {
  Digest digest{};
  if (EVP_DigestInit_ex2(digest_.get(), sha1_.get(), nullptr) != 1 ||
      EVP_DigestUpdate(digest_.get(), message.data(), message.size()) != 1 ||
      EVP_DigestFinal_ex(digest_.get(), digest.data(), nullptr) != 1) {
    throw std::bad_alloc();
  }
  return digest;
}

}  // namespace zevo
