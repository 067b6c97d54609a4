// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/FileDigest.h"

#include <sodium/crypto_hash_sha256.h>
#include <sodium/utils.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <vector>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"

namespace zevo::saft {

std::string FileDigest(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) FailWithSystemError(errno, file);
  crypto_hash_sha256_state state;
  crypto_hash_sha256_init(&state);
  std::vector<char> piece(size_t{1} << 20);
  while (in.read(piece.data(), static_cast<std::streamsize>(piece.size())) || in.gcount() > 0) {
    crypto_hash_sha256_update(&state, reinterpret_cast<const unsigned char*>(piece.data()),
                              static_cast<size_t>(in.gcount()));
    Interruption::ThrowIfRequested();
  }
  if (in.bad()) FailWithSystemError(errno, file);
  std::array<unsigned char, crypto_hash_sha256_BYTES> digest{};
  crypto_hash_sha256_final(&state, digest.data());
  std::array<char, 2 * crypto_hash_sha256_BYTES + 1> digits{};
  return sodium_bin2hex(digits.data(), digits.size(), digest.data(), digest.size());
}

}  // namespace zevo::saft
