// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/PublicKey.h>

#include <zevo/platform/Text.h>

#include <cstddef>
#include <cstdint>

namespace zevo {
namespace {

// Keys are a few hundred bytes.
constexpr size_t kLongestPem = size_t{64} * 1024;

constexpr char kSequence = 0x30;
constexpr char kInteger = 0x02;
constexpr char kBitString = 0x03;

// What stands between the lines that begin and end a PEM text of a kind; nothing where those are not there.
std::optional<std::string_view> BodyOf(std::string_view pem, std::string_view kind) {
  const std::string begin = std::string("-----BEGIN ").append(kind).append("-----");
  const std::string end = std::string("-----END ").append(kind).append("-----");
  const size_t from = pem.find(begin);
  if (from == std::string_view::npos) return std::nullopt;
  const size_t to = pem.find(end, from + begin.size());
  if (to == std::string_view::npos) return std::nullopt;
  return pem.substr(from + begin.size(), to - from - begin.size());
}

int SextetOf(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  return c == '/' ? 63 : -1;
}

std::optional<std::string> Base64Decoded(std::string_view text) {
  std::string bytes;
  uint32_t bits = 0;
  size_t characters = 0;
  size_t padding = 0;
  for (const char c : text) {
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
    ++characters;
    if (c == '=') {
      ++padding;
      continue;
    }
    const int sextet = SextetOf(c);
    if (sextet < 0 || padding > 0) return std::nullopt;
    bits = (bits << 6U) | static_cast<uint32_t>(sextet);
    if (characters % 4 != 1) {
      const auto shift = static_cast<uint32_t>(6 - 2 * ((characters - 1) % 4));
      bytes.push_back(static_cast<char>((bits >> shift) & 0xFFU));
    }
  }
  if (characters % 4 != 0 || padding > 2) return std::nullopt;
  return bytes;
}

// Takes a value of that tag off the front of DER; nothing where there is no such value.
std::optional<std::string_view> TakeValue(std::string_view& der, char tag) {
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

// A number that is not negative, nor 0.
std::optional<std::string> TakeNumber(std::string_view& der) {
  auto value = TakeValue(der, kInteger);
  if (!value || value->empty() || Byte(value->front()) >= 0x80) return std::nullopt;
  while (!value->empty() && value->front() == '\0') value->remove_prefix(1);
  if (value->empty()) return std::nullopt;
  return std::string(*value);
}

std::optional<PublicKey> RsaKeyOf(std::string_view der) {
  auto numbers = TakeValue(der, kSequence);
  if (!numbers || !der.empty()) return std::nullopt;
  auto modulus = TakeNumber(*numbers);
  if (!modulus) return std::nullopt;
  auto exponent = TakeNumber(*numbers);
  if (!exponent || !numbers->empty()) return std::nullopt;
  return PublicKey{*std::move(modulus), *std::move(exponent)};
}

// With the kind of the key in front.
std::optional<PublicKey> KeyOfAnyKind(std::string_view der) {
  constexpr std::string_view kRsaEncryption = "\x06\x09\x2A\x86\x48\x86\xF7\x0D\x01\x01\x01";
  auto parts = TakeValue(der, kSequence);
  if (!parts || !der.empty()) return std::nullopt;
  const auto kind = TakeValue(*parts, kSequence);
  if (!kind || !kind->starts_with(kRsaEncryption)) return std::nullopt;
  auto bits = TakeValue(*parts, kBitString);
  if (!bits || !parts->empty() || bits->empty() || bits->front() != '\0') return std::nullopt;
  return RsaKeyOf(bits->substr(1));
}

}  // namespace

std::optional<PublicKey> PublicKey::FromPem(std::string_view pem) {
  if (pem.size() > kLongestPem) return std::nullopt;
  if (const auto body = BodyOf(pem, "PUBLIC KEY")) {
    const auto der = Base64Decoded(*body);
    return der ? KeyOfAnyKind(*der) : std::nullopt;
  }
  if (const auto body = BodyOf(pem, "RSA PUBLIC KEY")) {
    const auto der = Base64Decoded(*body);
    return der ? RsaKeyOf(*der) : std::nullopt;
  }
  return std::nullopt;
}

}  // namespace zevo
