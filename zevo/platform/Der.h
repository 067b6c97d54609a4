// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_DER_H_
#define ZEVO_PLATFORM_DER_H_

#include <optional>
#include <string>
#include <string_view>

namespace zevo {

// What keys are written in: PEM is DER in base64 between two lines that say what it is.

inline constexpr char kDerInteger = 0x02;
inline constexpr char kDerBitString = 0x03;
inline constexpr char kDerOctetString = 0x04;
inline constexpr char kDerSequence = 0x30;
/// The kind of an RSA key, as it begins a sequence.
inline constexpr std::string_view kDerRsaEncryption = "\x06\x09\x2A\x86\x48\x86\xF7\x0D\x01\x01\x01";

/// The DER of a PEM text of a kind, such as "PUBLIC KEY"; nothing where there is none, or it is longer than keys are.
std::optional<std::string> DerOfPem(std::string_view pem, std::string_view kind);

/// Takes a value of that tag off the front of DER; nothing where there is no such value.
std::optional<std::string_view> TakeDer(std::string_view& der, char tag);

/// Takes a number that is not negative off the front, without zeros before it: bytes, the greatest first. Of 0, none.
std::optional<std::string> TakeDerNumber(std::string_view& der);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_DER_H_
