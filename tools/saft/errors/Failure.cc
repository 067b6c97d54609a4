// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/errors/Failure.h"

#include <zevo/adapters.h>

#include <new>

#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {

Failure::Failure(std::string_view file, std::string_view reason)
    : std::runtime_error(Visible(file) + ": " + Abridged(reason)) {}

Failure::Failure(std::string_view file, int64_t row, std::string_view reason)
    : std::runtime_error(Visible(file) + ":" + std::to_string(row) + ": " + Abridged(reason)) {}

void FailWith(const AuditException& error, std::string_view file, std::string_view place) {
  if (IsOutOfMemory(error)) throw std::bad_alloc();
  std::string reason = Describe(error, SpokenLanguage());
  // The name is told in front.
  if (const std::string name = ": " + std::string(place.empty() ? file : place) + "."; reason.ends_with(name)) {
    reason.replace(reason.size() - name.size(), name.size(), ".");
  }
  throw Failure(file, reason);
}

AuditException AsException(const Error& error) {
  AuditException told;
  told.set_Number(error.Number());
  told.set_Source(error.Source());
  told.set_Description(error.Description().empty() ? MessageText(error.Number()) : error.Description());
  return told;
}

void FailWith(const Error& error, std::string_view file, std::string_view place) {
  FailWith(AsException(error), file, place);
}

void FailWithSystemError(int error, std::string_view file, bool creating) {
  throw Failure(file, DescribeSystemError(error, SpokenLanguage(), creating));
}

// The number alone does not tell: the parser uses it for something else.
bool IsOutOfMemory(const AuditException& error) {
  return error.Number() == static_cast<int32_t>(RunTimeError::kOutOfMemory) && error.Source() == kRunTimeSource;
}

}  // namespace zevo::saft
