// SPDX-License-Identifier: Apache-2.0
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

namespace zevo::testing {
namespace {

// Names are UTF-8 on every system.
std::filesystem::path PathOf(std::string_view name) { return std::u8string(name.begin(), name.end()); }
std::string NameOf(const std::filesystem::path& path) {
  const std::u8string name = path.u8string();
  return std::string(name.begin(), name.end());
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = std::filesystem::temp_directory_path() / ("zevo-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::Path(std::string_view name) const { return NameOf(path_ / PathOf(name)); }

std::string TemporaryFolder::Write(std::string_view name, std::string_view bytes) const {
  std::string path = Path(name);
  std::ofstream(PathOf(path), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path;
}

std::vector<std::string> TemporaryFolder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) names.push_back(NameOf(entry.path().filename()));
  std::ranges::sort(names);
  return names;
}

std::string ReadBytes(const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  EXPECT_TRUE(file.good()) << path;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace zevo::testing
