// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/KeyText.h"

#include <cerrno>
#include <fstream>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/InputName.h"

namespace zevo::saft {
namespace {

constexpr std::streamsize kLongestKey = std::streamsize{64} * 1024;

}  // namespace

std::string KeyTextOf(const std::string& file) {
  RequireRegularFile(file);
  std::ifstream stream(file, std::ios::binary);
  std::string text(kLongestKey, '\0');
  if (stream.is_open()) stream.read(text.data(), kLongestKey);
  if (!stream.is_open() || stream.bad()) FailWithSystemError(errno, file);
  text.resize(static_cast<size_t>(stream.gcount()));
  return text;
}

}  // namespace zevo::saft
