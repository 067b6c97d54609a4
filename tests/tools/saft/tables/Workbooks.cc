// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/tables/Workbooks.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sstream>

namespace zevo::testing {

std::vector<std::string> LinesOfWorkbook(const std::string& file) {
  const std::string command = "PYTHONIOENCODING=utf-8 '" READ_WORKBOOK "' '" + file + "'";
  std::FILE* const pipe = popen(command.c_str(), "r");
  std::string text;
  std::array<char, 4096> piece{};
  while (const size_t size = std::fread(piece.data(), 1, piece.size(), pipe)) text.append(piece.data(), size);
  EXPECT_EQ(pclose(pipe), 0) << file;
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace zevo::testing
