// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Der.h>

#include <zevo/platform/Base64.h>
#include <zevo/platform/Text.h>

#include <cstddef>

namespace zevo {
namespace {

// Keys are a few thousand bytes at most.
constexpr size_t kLongestPem = size_t{64} * 1024;

}  // namespace

std::optional<std::string> DerOfPem(std::string_view pem, std::string_view kind) {
  if (pem.size() > kLongestPem) return std::nullopt;
  const std::string begin = std::string("-----BEGIN ").append(kind).append("-----");
  const std::string end = std::string("-----END ").append(kind).append("-----");
  const size_t from = pem.find(begin);
  if (from == std::string_view::npos) return std::nullopt;
  const size_t to = pem.find(end, from + begin.size());
  if (to == std::string_view::npos) return std::nullopt;
  return Base64Decoded(pem.substr(from + begin.size(), to - from - begin.size()));
}

std::optional<std::string_view> TakeDer(std::string_view& der, char tag) {
  if (der.size() < 2 || der[0] != tag) return std::nullopt;
  size_t length = Byte(der[1]);
  size_t head = 2;
  if (length >= 0x80) {
    const size_t bytes = length - 0x80;
    if (bytes == 0 || bytes > 3 || der.size() < head + bytes) return std::nullopt;
    length = 0;
    for (size_t i = 0; i < bytes; ++i) length = length * 256 + Byte(der[head + i]);
    head += bytes;
  }
  if (der.size() - head < length) return std::nullopt;
  const std::string_view value = der.substr(head, length);
  der.remove_prefix(head + length);
  return value;
}

std::optional<std::string> TakeDerNumber(std::string_view& der) {
  auto value = TakeDer(der, kDerInteger);
  if (!value || value->empty() || Byte(value->front()) >= 0x80) return std::nullopt;
  while (!value->empty() && value->front() == '\0') value->remove_prefix(1);
  return std::string(*value);
}

}  // namespace zevo
