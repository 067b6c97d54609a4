#include "tools/saft/Failure.h"

#include <zevo/adapters.h>

#include <new>

#include "tools/saft/VisibleText.h"

namespace zevo::saft {

Failure::Failure(std::string_view file, std::string_view reason)
    : std::runtime_error(Visible(file) + ": " + Abridged(reason)) {}

Failure::Failure(std::string_view file, int64_t row, std::string_view reason)
    : std::runtime_error(Visible(file) + ":" + std::to_string(row) + ": " + Abridged(reason)) {}

void FailWith(int32_t number, std::string_view description, std::string_view file) {
  if (number == static_cast<int32_t>(RunTimeError::kOutOfMemory)) throw std::bad_alloc();
  throw Failure(file, description);
}

}  // namespace zevo::saft
