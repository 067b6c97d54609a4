#include "tools/saft/Failure.h"

namespace zevo::saft {

Failure::Failure(std::string_view file, std::string_view reason)
    : std::runtime_error(std::string(file).append(": ").append(reason)) {}

Failure::Failure(std::string_view file, int64_t row, std::string_view reason)
    : std::runtime_error(std::string(file).append(":").append(std::to_string(row)).append(": ").append(reason)) {}

}  // namespace zevo::saft
