// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckChoices.h"

#include <charconv>
#include <string>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/KeyText.h"
#include "tools/saft/words/CheckWords.h"

namespace zevo::saft {
std::optional<int> TakeCount(std::string_view text) {
  int count = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, count);
  if (error != std::errc() || stop != end || count < 0) return std::nullopt;
  return count;
}

KeyFile TakeKeyFile(std::string_view text) {
  const size_t colon = text.rfind(':');
  if (colon != std::string_view::npos) {
    if (const auto version = TakeCount(text.substr(colon + 1))) return {std::string(text.substr(0, colon)), *version};
  }
  return {std::string(text), 0};
}

void CheckChoices::Add(const CheckChoices& more) {
  severities.insert(severities.end(), more.severities.begin(), more.severities.end());
  public_keys.insert(public_keys.end(), more.public_keys.begin(), more.public_keys.end());
  if (more.most) most = more.most;
  if (!more.schema.empty()) schema = more.schema;
}

void CheckChoices::Apply(AuditFileChecker& checker) const {
  for (const auto& [rule, severity] : severities) checker.set_Severity(rule, severity);
  for (const auto& [file, version] : public_keys) {
    const std::string pem = KeyTextOf(file);
    try {
      checker.AddPublicKey(pem, version);
    } catch (const Error& error) {
      if (error.Number() != static_cast<int32_t>(RunTimeError::kInvalidCall)) throw;
      throw Failure(file, Say(words::kNoKey));
    }
  }
  if (most) checker.set_MostFindings(*most);
}

}  // namespace zevo::saft
