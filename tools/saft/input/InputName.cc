// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/InputName.h"

#include <filesystem>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/words/FileWords.h"

namespace zevo::saft {

void RequireRegularFile(const std::string& path) {
  std::error_code unknown;
  switch (std::filesystem::status(path, unknown).type()) {
    case std::filesystem::file_type::directory:
      throw Failure(path, Say(words::kIsFolder));
    case std::filesystem::file_type::fifo:
      throw Failure(path, Say(words::kIsPipe));
    case std::filesystem::file_type::socket:
      throw Failure(path, Say(words::kIsSocket));
    case std::filesystem::file_type::block:
    case std::filesystem::file_type::character:
      throw Failure(path, Say(words::kIsDevice));
    case std::filesystem::file_type::regular:
      return;
    default:
      if (std::filesystem::is_symlink(path, unknown)) throw Failure(path, Say(words::kLeadsNowhere));
  }
}

std::string InputName(const std::string& given) {
  if (given != "-" && given != kStandardInput) {
    RequireRegularFile(given);
    return given;
  }
  std::error_code closed;
  const auto behind = std::filesystem::status(kStandardInput, closed).type();
  if (behind == std::filesystem::file_type::not_found) throw Failure(given, Say(words::kInputClosed));
  if (behind == std::filesystem::file_type::directory) throw Failure(given, Say(words::kIsFolder));
  return kStandardInput;
}

}  // namespace zevo::saft
