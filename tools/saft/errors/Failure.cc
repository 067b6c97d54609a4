// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/errors/Failure.h"

#include <zevo/adapters.h>

#include <new>

#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

// The number alone does not tell: the parser uses it for something else.
template <class LibraryError>
bool IsOfMemory(const LibraryError& error) {
  return error.Number() == static_cast<int32_t>(RunTimeError::kOutOfMemory) && error.Source() == kRunTimeSource;
}

template <class LibraryError>
[[noreturn]] void FailWithEither(const LibraryError& error, std::string_view file) {
  if (IsOfMemory(error)) throw std::bad_alloc();
  throw Failure(file, error.Description());
}

}  // namespace

Failure::Failure(std::string_view file, std::string_view reason)
    : std::runtime_error(Visible(file) + ": " + Abridged(reason)) {}

Failure::Failure(std::string_view file, int64_t row, std::string_view reason)
    : std::runtime_error(Visible(file) + ":" + std::to_string(row) + ": " + Abridged(reason)) {}

void FailWith(const AuditException& error, std::string_view file) { FailWithEither(error, file); }

void FailWith(const Error& error, std::string_view file) { FailWithEither(error, file); }

bool IsOutOfMemory(const AuditException& error) { return IsOfMemory(error); }

}  // namespace zevo::saft
