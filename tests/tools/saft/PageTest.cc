// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/PageTest.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <vector>

namespace zevo::testing {
namespace {

// What the page has between two lines of "```": commands with what they answer or, where a file is named, its text.
struct Block {
  std::string kind;
  std::string file;
  std::string text;
};

std::vector<Block> BlocksOf(const std::string& page) {
  std::vector<Block> blocks;
  std::istringstream lines(page);
  bool inside = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      inside = !inside;
      const size_t blank = std::min(line.find(' '), line.size());
      const std::string file = line.substr(std::min(blank + 1, line.size()));
      if (inside) blocks.push_back({line.substr(3, blank - 3), file, ""});
    } else if (inside) {
      blocks.back().text.append(line).append("\n");
    }
  }
  return blocks;
}

// As Excel saves it on a Portuguese Windows. The page has no characters beyond Latin-1.
std::string AsExcelSaves(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    EXPECT_LT(character, 0x100U);
    bytes.append(character == '\n' ? "\r" : "").append(1, static_cast<char>(character));
  }
  return bytes;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// Whether lines are those of the page, in which "[…]" stands for any number of lines.
bool IsLike(const std::vector<std::string>& lines, const std::vector<std::string>& page, size_t line = 0,
            size_t at = 0) {
  for (; at < page.size(); ++at, ++line) {
    if (page[at] == "[…]") {
      for (size_t from = line; from <= lines.size(); ++from) {
        if (IsLike(lines, page, from, at + 1)) return true;
      }
      return false;
    }
    if (line == lines.size() || lines[line] != page[at]) return false;
  }
  return line == lines.size();
}

}  // namespace

// Runs the commands of a block one after the other, each where the one before left off.
void PageTest::RunBlock(const std::string& text) {
  std::vector<std::string> page;
  std::string command;
  const auto run = [&] {
    if (command.empty()) return;
    const testing::Outcome outcome =
        RunInShell("export LC_ALL=pt_PT.UTF-8; cd '" + at_ + "' && (" + command + ") 2>&1");
    EXPECT_TRUE(IsLike(LinesOf(outcome.out), page)) << "$ " << command << '\n' << outcome.out;
    if (command.starts_with("cd ")) at_ = std::filesystem::path(at_).append(command.substr(3)).string();
  };
  for (const std::string& line : LinesOf(text)) {
    if (line.starts_with("$ ")) {
      run();
      command = line.substr(2);
      page.clear();
    } else {
      page.push_back(line);
    }
  }
  run();
}

void PageTest::RunPage(const std::string& page, size_t least) {
  const std::vector<Block> blocks = BlocksOf(page);
  EXPECT_GE(blocks.size(), least);
  for (const Block& block : blocks) {
    if (block.file.empty()) {
      RunBlock(block.text);
    } else {
      folder_.Write(block.file, block.kind == "csv" ? AsExcelSaves(block.text) : block.text);
    }
  }
}

}  // namespace zevo::testing
