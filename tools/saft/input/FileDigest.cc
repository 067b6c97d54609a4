// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/FileDigest.h"

#include <openssl/evp.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <memory>
#include <new>
#include <span>
#include <vector>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"

namespace zevo::saft {
namespace {

std::string HexOf(std::span<const unsigned char> bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string digits;
  for (const unsigned byte : bytes) digits.append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 0xFU]);
  return digits;
}

}  // namespace

// libcrypto has the processor's own instructions do it.
std::string FileDigest(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) FailWithSystemError(errno, file);
  const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> state(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
  if (!state || EVP_DigestInit_ex(state.get(), EVP_sha256(), nullptr) != 1) throw std::bad_alloc();
  std::vector<char> piece(size_t{1} << 20);
  while (in.read(piece.data(), static_cast<std::streamsize>(piece.size())) || in.gcount() > 0) {
    if (EVP_DigestUpdate(state.get(), piece.data(), static_cast<size_t>(in.gcount())) != 1) throw std::bad_alloc();
    Interruption::ThrowIfRequested();
  }
  if (in.bad()) FailWithSystemError(errno, file);
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned int size = 0;
  if (EVP_DigestFinal_ex(state.get(), digest.data(), &size) != 1) throw std::bad_alloc();
  return HexOf(std::span(digest).first(size));
}

}  // namespace zevo::saft
