// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_TEMPORARYFOLDER_H_
#define ZEVO_TESTS_SUPPORT_TEMPORARYFOLDER_H_

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::testing {

/// A folder of a test's own, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  /// The path of a name in the folder; there need not be such a file.
  std::string Path(std::string_view name) const;
  /// Writes a file as it is told, byte for byte; gives its path.
  std::string Write(std::string_view name, std::string_view bytes) const;
  /// The names in the folder, sorted.
  std::vector<std::string> Names() const;

 private:
  std::filesystem::path path_;
};

/// The bytes of a file; fails the test when it cannot be read.
std::string ReadBytes(const std::string& path);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_TEMPORARYFOLDER_H_
