#include "tools/saft/FileKind.h"

#include <filesystem>
#include <system_error>

#include "tools/saft/Failure.h"

namespace zevo::saft {

void RequireRegularFile(const std::string& path) {
  std::error_code unknown;
  switch (std::filesystem::status(path, unknown).type()) {
    case std::filesystem::file_type::directory:
      throw Failure(path, "is a folder");
    case std::filesystem::file_type::fifo:
      throw Failure(path, "is a pipe");
    case std::filesystem::file_type::socket:
      throw Failure(path, "is a socket");
    case std::filesystem::file_type::block:
    case std::filesystem::file_type::character:
      throw Failure(path, "is a device");
    default:
      return;
  }
}

}  // namespace zevo::saft
