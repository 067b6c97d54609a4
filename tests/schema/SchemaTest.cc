// SPDX-License-Identifier: Apache-2.0
// The shipped schema against documents that must pass and documents that must fail: complete.xml, and the cases of
// elements.txt, values.txt and changes.txt, which each change it in one place. A row that says nothing new stops the
// program with the place of the row.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/fastpath/FastSchema.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/platform/fastpath/FastVerdict.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::HasSubstr;
using ::testing::Optional;

const std::string kFolder = ZEVO_SCHEMA_CASES "/";

// The tables.

struct Row {
  std::string file;
  int line = 0;
  std::vector<std::string> cells;
};

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Calls `use` with each row of a table: cells between bars, without the blanks around them. Cells left out at the end
// are empty.
void ForEachRow(const std::string& table, size_t cells, const std::function<void(const Row&)>& use) {
  Row row{kFolder + table, 0, {}};
  std::ifstream in(row.file);
  if (!in) throw std::runtime_error(row.file + " cannot be read");
  for (std::string line; std::getline(in, line);) {
    ++row.line;
    if (line.empty() || line[0] == '#') continue;
    row.cells.clear();
    std::istringstream rest(line);
    for (std::string cell; std::getline(rest, cell, '|');) row.cells.emplace_back(Trimmed(cell));
    try {
      if (row.cells.size() > cells) throw std::runtime_error("has too many cells");
      row.cells.resize(cells);
      use(row);
    } catch (const std::exception& error) {
      throw std::runtime_error(row.file + ":" + std::to_string(row.line) + ": " + error.what());
    }
  }
}

// The document.

// The complete document without line ends and the indentation after them.
const std::string& Complete() {
  static const std::string document = [] {
    std::string text;
    std::ifstream in(kFolder + "complete.xml");
    for (std::string line; std::getline(in, line);) text += Trimmed(line);
    return text;
  }();
  return document;
}

// The element that a path leads to: Customer[2]/BillingAddress is the first BillingAddress in the second Customer.
std::string_view Find(const std::string& path) {
  std::string_view found = Complete();
  std::istringstream steps(path);
  for (std::string step; std::getline(steps, step, '/');) {
    const size_t bracket = step.find('[');
    const std::string name = step.substr(0, bracket);
    size_t start = found.find("<" + name + ">");
    for (int i = bracket == std::string::npos ? 1 : std::stoi(step.substr(bracket + 1)); i > 1; --i) {
      start = found.find("<" + name + ">", start + 1);
    }
    const std::string end = "</" + name + ">";
    if (start > found.size()) throw std::runtime_error("the document has no " + path);
    found = found.substr(start, found.find(end, start) + end.size() - start);
  }
  return found;
}

// A part of the document; its ends are the first and the last element of a span of siblings.
struct Part {
  std::string_view whole;
  std::string_view first = whole;
  std::string_view last = whole;
};

// The part that a path leads to, a span (Header/StartDate..EndDate), or the text itself where it begins with a tag,
// which must occur once.
Part PartAt(const std::string& where) {
  if (where.starts_with('<')) {
    const std::string_view document = Complete();
    const size_t start = document.find(where);
    if (start == std::string::npos || document.find(where, start + 1) != std::string::npos) {
      throw std::runtime_error("the document does not have once: " + where);
    }
    return {document.substr(start, where.size())};
  }
  const size_t dots = where.find("..");
  const std::string_view first = Find(where.substr(0, dots));
  if (dots == std::string::npos) return {first};
  const std::string_view last = Find(where.substr(0, where.rfind('/', dots) + 1) + where.substr(dots + 2));
  if (last.data() < first.data()) throw std::runtime_error("the document has another order than " + where);
  return {{first.data(), last.data() + last.size()}, first, last};
}

// A text of a table in full: {} is what is replaced, {1} and {2} are its ends, {ã*3} is ããã, {Invoice/Line} that part
// of the document.
std::string Full(std::string_view text, const Part& replaced) {
  std::string full;
  while (!text.empty()) {
    const size_t open = std::min(text.find('{'), text.size());
    full += text.substr(0, open);
    if (open == text.size()) break;
    const size_t close = text.find('}', open);
    if (close == std::string_view::npos) throw std::runtime_error("lacks the brace that closes");
    const std::string inner(text.substr(open + 1, close - open - 1));
    if (const size_t star = inner.find('*'); star != std::string::npos) {
      for (int i = std::stoi(inner.substr(star + 1)); i > 0; --i) full += inner.substr(0, star);
    } else if (inner == "1" || inner == "2") {
      full += inner == "1" ? replaced.first : replaced.last;
    } else {
      full += inner.empty() ? replaced.whole : PartAt(inner).whole;
    }
    text.remove_prefix(close + 1);
  }
  return full;
}

// The cases.

std::string Leaf(const std::string& element, std::string_view text) {
  return ("<" + element + ">").append(text).append("</" + element + ">");
}

struct Case {
  std::string name;
  std::string document;
  std::string violation;  // part of the description of the first violation; empty when the document is valid
};

class SchemaTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    schema_.emplace(SchemaSource(ZEVO_SCHEMA_FILE), "urn:OECD:StandardAuditFile-Tax:PT_1.01_01", "SchemaTest");
    validator_.emplace(*schema_);
    tables_ = SchemaTables::Of(SchemaSource(ZEVO_SCHEMA_FILE).Read());
    fast_schema_ = FastSchema::Of(*tables_);
    folder_ = std::make_unique<testing::TemporaryFolder>();
  }
  static void TearDownTestSuite() {
    folder_.reset();
    fast_schema_.reset();
    tables_.reset();
    validator_.reset();
    schema_.reset();
  }

  // The description of the first violation, or nothing for a valid document.
  std::optional<std::string> FirstViolation(std::string_view document) {
    const std::optional<XmlProblem> problem = validator_->FirstProblem(folder_->Write("document.xml", document));
    // Without libxml2, the valid ones are known to be valid, and no others.
    EXPECT_EQ(testing::FastVerdict::IsValid(*fast_schema_, document), !problem.has_value());
    if (!problem) return std::nullopt;
    return AsError(*problem, "SchemaTest").Description();
  }

 private:
  static inline std::optional<CompiledSchema> schema_;
  static inline std::optional<SchemaValidator> validator_;
  static inline std::unique_ptr<const SchemaTables> tables_;
  static inline std::unique_ptr<const FastSchema> fast_schema_;
  static inline std::unique_ptr<testing::TemporaryFolder> folder_;
};

TEST_F(SchemaTest, CompleteDocumentIsValid) {
  EXPECT_EQ(FirstViolation(testing::ReadBytes(kFolder + "complete.xml")), std::nullopt);
}

class SchemaCase : public SchemaTest {
 public:
  explicit SchemaCase(Case schemaCase) : case_(std::move(schemaCase)) {}

  void TestBody() override {
    const std::optional<std::string> violation = FirstViolation(case_.document);
    if (case_.violation.empty()) {
      EXPECT_EQ(violation, std::nullopt);
    } else {
      EXPECT_THAT(violation, Optional(HasSubstr(case_.violation)));
    }
  }

 private:
  Case case_;
};

class Cases {
 public:
  void Read() {
    ForEachRow("violations.txt", 2, [this](const Row& row) { violations_[row.cells[0]] = row.cells[1]; });
    ForEachRow("elements.txt", 5, [this](const Row& row) { AddElement(row); });
    ForEachRow("values.txt", 4, [this](const Row& row) { AddValue(row); });
    ForEachRow("changes.txt", 4, [this](const Row& row) { AddChange(row); });
  }

 private:
  // One element: whether it may be missing, how long its text may be, which codes it takes and which it does not.
  void AddElement(const Row& row) {
    const std::string& path = row.cells[0];
    const size_t last = path.rfind('/') + 1;
    const std::string element = path.substr(last);
    std::string owner;
    for (const char c : path.substr(0, last)) {
      if (std::isalpha(c) != 0) owner += c;
    }
    const auto add_text = [&](const std::string& what, const std::string& text, const std::string& violation) {
      Add(row, owner + element + what, path, Leaf(element, text), violation);
    };

    const std::string& presence = row.cells[1];
    if (presence == "optional") {
      Add(row, owner + "Without" + element, path, "", "valid");
    } else if (presence == "required") {
      Add(row, owner + "Lacks" + element, path, "", "missing " + element);
    } else if (!presence.empty() && presence != "single") {
      throw std::runtime_error(presence + " is not said of elements");
    }
    if (!presence.empty()) Add(row, owner + "WithTwo" + element, path, "{}{}", "unexpected " + element);

    // Texts are counted in characters, not bytes: the letter that fills them has two bytes.
    if (const std::string& length = row.cells[2]; !length.empty()) {
      add_text("OfOneCharacter", "ã", "valid");
      add_text("AtItsLimit", "{ã*" + length + "}", "valid");
      add_text("PastItsLimit", "{ã*" + length + "}ã", "maxLength " + element);
      add_text("Empty", "", "minLength " + element);
    }

    if (row.cells[3].empty()) return;
    std::istringstream takes(row.cells[3]);
    for (std::string code; takes >> code;) {
      if (Find(path) != Leaf(element, code)) add_text("Takes" + code, code, "valid");
    }
    std::istringstream refuses(row.cells[4]);
    for (std::string code; refuses >> code;) add_text("Refuses" + code, code, "enumeration " + element);
    add_text("Empty", "", "enumeration " + element);
  }

  // A leaf takes another value.
  void AddValue(const Row& row) {
    const std::string& path = row.cells[1];
    const std::string element = path.substr(path.rfind('/') + 1);
    Add(row, row.cells[0], path, Leaf(element, row.cells[2]), row.cells[3] + " " + element, row.cells[2]);
  }

  void AddChange(const Row& row) { Add(row, row.cells[0], row.cells[1], row.cells[2], row.cells[3]); }

  void Add(const Row& row, const std::string& name, const std::string& where, const std::string& replacement,
           const std::string& violation, const std::string& value = {}) {
    const Part replaced = PartAt(where);
    Case added{name, Complete(), Violation(violation, value)};
    added.document.replace(static_cast<size_t>(replaced.whole.data() - Complete().data()), replaced.whole.size(),
                           Full(replacement, replaced));
    if (added.document == Complete()) throw std::runtime_error(name + " replaces nothing");
    if (!names_.insert(name).second || !documents_.insert(added.document).second) {
      throw std::runtime_error(name + " is there twice");
    }
    ::testing::RegisterTest("SchemaTest", name.c_str(), nullptr, nullptr, row.file.c_str(), row.line,
                            [added]() -> SchemaTest* { return new SchemaCase(added); });
  }

  // What a word stands for, of the element or key behind it.
  std::string Violation(const std::string& phrase, const std::string& value) const {
    const size_t blank = std::min(phrase.find(' '), phrase.size());
    const auto word = violations_.find(phrase.substr(0, blank));
    if (word == violations_.end()) throw std::runtime_error(phrase + " is not in violations.txt");
    std::string text;
    for (const char c : word->second) {
      if (c == '@') {
        text += Trimmed(phrase.substr(blank));
      } else if (c == '*') {
        text += value;
      } else {
        text += c;
      }
    }
    return text;
  }

  std::map<std::string, std::string> violations_;
  std::set<std::string> names_;
  std::set<std::string> documents_;
};

}  // namespace
}  // namespace zevo

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  try {
    zevo::Cases().Read();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return RUN_ALL_TESTS();
}
