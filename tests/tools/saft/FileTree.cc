// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/FileTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace zevo::testing {
namespace {

/// Makes trees of the entities of one file, counting its rows.
class TreeMaker {
 public:
  Tree Make(std::span<const ScannedElement> elements) {
    size_t next = 0;
    return MakeAt(elements, next, "", {});
  }

 private:
  Tree MakeAt(std::span<const ScannedElement> elements, size_t& next, const std::string& above, DatasetRow row) {
    const ScannedElement& element = elements[next++];
    const std::string path = above.empty() ? std::string(element.name) : above + "/" + std::string(element.name);
    const auto listed = std::ranges::find(kDatasetElements, path, &DatasetElement::path);
    if (listed != kDatasetElements.end()) {
      row.element = static_cast<size_t>(listed - kDatasetElements.begin());
      row.row = rows_[row.element]++;
    }
    Tree tree{
        .name = std::string(element.name), .text = std::string(Trimmed(element.text)), .row = row, .children = {}};
    while (next < elements.size() && elements[next].depth > element.depth) {
      tree.children.push_back(MakeAt(elements, next, path, row));
    }
    return tree;
  }

  std::array<size_t, kDatasetElements.size()> rows_{};
};

}  // namespace

const Tree* Tree::Child(std::string_view wanted) const {
  const auto found = std::ranges::find(children, wanted, &Tree::name);
  return found == children.end() ? nullptr : &*found;
}

std::string Tree::TextOf(std::string_view child) const {
  const Tree* const found = Child(child);
  return found == nullptr ? std::string() : found->text;
}

std::vector<FileEntity> ReadTrees(const std::string& path) {
  AuditFileScanner scanner;
  scanner.set_AuditFileName(path);
  EXPECT_TRUE(scanner.OpenAuditFile()) << path;
  std::vector<FileEntity> entities;
  TreeMaker maker;
  std::shared_ptr<Record> record;
  while (scanner.ReadNext(record) && record) {
    Tree tree = maker.Make(scanner.Elements());
    const EntityKind kind = *scanner.Kind();
    if (kind == EntityKind::kTaxTable && !entities.empty()) {
      const auto first = std::ranges::find(entities, kind, &FileEntity::kind);
      if (first != entities.end()) {
        std::ranges::move(tree.children, std::back_inserter(first->element.children));
        continue;
      }
    }
    entities.push_back({kind, std::string(Trimmed(scanner.JournalID())), std::move(tree)});
  }
  EXPECT_EQ(scanner.AuditException(), nullptr) << path;
  std::ranges::stable_sort(entities, {}, &FileEntity::kind);
  return entities;
}

std::vector<size_t> LinesOfRows(std::string_view csv) {
  std::vector<size_t> lines;
  size_t line = 1;
  bool quoted = false;
  bool begins = true;
  for (const char c : csv) {
    if (begins) lines.push_back(line);
    begins = false;
    if (c == '"') quoted = !quoted;
    if (c != '\n') continue;
    ++line;
    begins = !quoted;
  }
  if (!lines.empty()) lines.erase(lines.begin());
  return lines;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kWhiteSpace = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

}  // namespace zevo::testing
