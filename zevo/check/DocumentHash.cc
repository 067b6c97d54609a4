// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentHash.h>

#include <zevo/platform/Base64.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace zevo {
namespace {

size_t DigitsAtFront(std::string_view text) { return std::min(text.find_first_not_of("0123456789"), text.size()); }

bool IsUpperCase(char c) { return c >= 'A' && c <= 'Z'; }

}  // namespace

HashForm HashFormOf(const TextFact& hash) {
  if (hash.Missing()) return HashForm::kNone;
  if (*hash == "0") return HashForm::kUnsigned;
  return IsBase64Of(*hash, kSignatureSize) ? HashForm::kSignature : HashForm::kNone;
}

std::string SignatureBytes(std::string_view hash) { return Base64Decoded(hash).value_or(std::string()); }

HashControl HashControl::FromText(std::string_view text) {
  const size_t digits = DigitsAtFront(text);
  if (digits == 0) return {};
  HashControl control{Form::kOtherText, {}};
  int32_t version = 0;
  const auto read = std::from_chars(text.data(), text.data() + digits, version);
  if (read.ec == std::errc()) control.version = version;
  const std::string_view rest = text.substr(digits);
  if (rest.empty()) {
    control.form = Form::kVersion;
    return control;
  }
  if (rest.front() == '.' && rest.size() > 1 && DigitsAtFront(rest.substr(1)) == rest.size() - 1) return control;
  const bool other = rest.size() >= 4 && rest[0] == '-' && IsUpperCase(rest[1]) && IsUpperCase(rest[2]) &&
                     (rest[3] == 'M' || rest[3] == 'D');
  return other ? control : HashControl{};
}

}  // namespace zevo
