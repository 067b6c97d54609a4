// SPDX-License-Identifier: Apache-2.0
// What is told of files that the schema does not allow: the complete document with faults of every kind in every place,
// beside libxml2's verdict.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/facades/AuditFile.h>
#include <zevo/facades/AuditFileValidator.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Violation.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaDiagnosis.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/fastpath/FastSchema.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/platform/fastpath/FastVerdict.h"
#include "tests/schema/XmlParts.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using testing::XmlPart;

/// A path down the document: which child, which child of that.
using Way = std::vector<size_t>;

struct Fault {
  std::string what;
  Way way;
};

XmlPart& At(XmlPart& root, const Way& way, size_t left_off = 0) {
  XmlPart* part = &root;
  for (size_t i = 0; i + left_off < way.size(); ++i) part = &part->children[way[i]];
  return *part;
}

/// The kinds of faults, each with whether it can be planted in an element and how it is.
const std::vector<std::string> kFaults{"removed", "repeated", "swapped",   "renamed", "emptied",
                                       "wrong",   "too long", "attribute", "text",    "unknown child"};

/// Those of which pairs are made.
const std::vector<std::string> kFaultsInPairs{"removed", "repeated", "swapped", "renamed", "too long", "attribute"};

bool CanBePlanted(const XmlPart& root, const Fault& fault) {
  const XmlPart& part = At(const_cast<XmlPart&>(root), fault.way);
  if (fault.way.empty()) return fault.what == "attribute" || fault.what == "text" || fault.what == "renamed";
  if (fault.what == "swapped") {
    const XmlPart& parent = At(const_cast<XmlPart&>(root), fault.way, 1);
    return fault.way.back() + 1 < parent.children.size() && parent.children[fault.way.back() + 1].name != part.name;
  }
  if (fault.what == "emptied") return !part.text.empty() || !part.children.empty();
  if (fault.what == "wrong" || fault.what == "too long") return part.IsText();
  if (fault.what == "text") return !part.IsText();
  return true;
}

void Plant(XmlPart& root, const Fault& fault) {
  XmlPart& part = At(root, fault.way);
  if (fault.what == "renamed") part.name += "X";
  if (fault.what == "emptied") part = {part.name, part.attributes, {}, {}};
  if (fault.what == "wrong") part.text = "\xC2\xA7 ";
  if (fault.what == "too long") part.text = std::string(300, '1');
  if (fault.what == "attribute") part.attributes += " extra=\"1\"";
  if (fault.what == "text") part.text = "texto";
  if (fault.what == "unknown child") part.children.insert(part.children.begin(), XmlPart{"Extra", {}, "1", {}});
  if (fault.way.empty()) return;
  std::vector<XmlPart>& siblings = At(root, fault.way, 1).children;
  const auto at = siblings.begin() + static_cast<std::ptrdiff_t>(fault.way.back());
  if (fault.what == "removed") siblings.erase(at);
  if (fault.what == "repeated") siblings.insert(at, XmlPart(*at));
  if (fault.what == "swapped") std::swap(*at, *(at + 1));
}

class DiagnosisTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    const SchemaSource source(ZEVO_SCHEMA_FILE);
    schema_ = std::make_unique<CompiledSchema>(source, "urn:OECD:StandardAuditFile-Tax:PT_1.01_01", "DiagnosisTest");
    tables_ = SchemaTables::Of(source.Read());
    fast_schema_ = FastSchema::Of(*tables_);
    for (const EntityKind kind : EntityKinds()) {
      records_.push_back({.name = NameOf(kind), .key = KeyOf(kind), .parent = {}});
      if (const auto parent = ParentOf(kind)) records_.back().parent = static_cast<size_t>(*parent);
    }
    const std::string text = testing::ReadBytes(ZEVO_SCHEMA_CASES "/complete.xml");
    std::string_view rest = std::string_view(text).substr(text.find("<AuditFile"));
    complete_ = testing::TakePart(rest);
  }
  static void TearDownTestSuite() {
    fast_schema_.reset();
    tables_.reset();
    schema_.reset();
  }

  std::vector<Violation> ViolationsOf(const XmlPart& document) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    document.Write(text);
    file_ = folder_.Write("file.xml", text);
    std::vector<Violation> violations;
    SchemaDiagnosis diagnosis(*tables_, records_, [&](const SchemaViolation& told) {
      Violation& violation = violations.emplace_back();
      violation = {told.number, {}, told.key, told.path, told.place, told.value, told.allowed};
      if (told.record) violation.kind = EntityKinds()[*told.record];
      return true;
    });
    const auto outcome = diagnosis.Run(file_);
    EXPECT_FALSE(outcome.problem);
    EXPECT_FALSE(outcome.left_off);
    return violations;
  }
  /// libxml2's first, of the file that was looked at last.
  std::optional<XmlProblem> FirstProblem() { return SchemaValidator(*schema_).FirstProblem(file_); }

  static std::string All(const std::vector<Violation>& violations) {
    std::string all;
    for (const Violation& violation : violations) all += Describe(violation, Language::kPortuguese) + "\n";
    return all;
  }

  static void ForEachWay(const std::function<void(const Way&)>& action) {
    Way way;
    Visit(complete_, way, action);
  }

  static std::vector<Fault> AllFaults() {
    std::vector<Fault> faults;
    ForEachWay([&](const Way& way) {
      for (const std::string& what : kFaults) {
        if (CanBePlanted(complete_, {what, way})) faults.push_back({what, way});
      }
    });
    return faults;
  }

  static std::string NameOfFault(const Fault& fault) {
    std::string name;
    for (size_t i = 0; i <= fault.way.size(); ++i) name += "/" + At(complete_, fault.way, fault.way.size() - i).name;
    return name + " " + fault.what;
  }

  static inline std::unique_ptr<CompiledSchema> schema_;
  static inline std::unique_ptr<const SchemaTables> tables_;
  static inline std::unique_ptr<const FastSchema> fast_schema_;
  static inline std::vector<RecordElement> records_;
  static inline XmlPart complete_;
  testing::TemporaryFolder folder_;
  std::string file_;

 private:
  static void Visit(const XmlPart& part, Way& way, const std::function<void(const Way&)>& action) {
    action(way);
    for (size_t i = 0; i < part.children.size(); ++i) {
      way.push_back(i);
      Visit(part.children[i], way, action);
      way.pop_back();
    }
  }
};

TEST_F(DiagnosisTest, TheShippedSchemaIsFollowed) { ASSERT_NE(tables_, nullptr); }

TEST_F(DiagnosisTest, NothingIsToldOfAValidFile) {
  EXPECT_EQ(All(ViolationsOf(complete_)), "");
  EXPECT_EQ(FirstProblem(), std::nullopt);
}

/// What a violation says, but for where it stands and what may stand there instead: faults before it change that.
std::multiset<std::string> Essence(const std::vector<Violation>& violations) {
  std::multiset<std::string> essence;
  for (const Violation& violation : violations) {
    std::string text = std::to_string(violation.number) + " " + violation.value + " ";
    bool counted = false;
    for (const char c : violation.path) {
      if (c == '[') counted = true;
      if (!counted) text += c;
      if (c == ']') counted = false;
    }
    essence.insert(text);
  }
  return essence;
}

TEST_F(DiagnosisTest, EveryFaultIsToldWhereLibxml2FindsOne) {
  const std::vector<Fault> faults = AllFaults();
  EXPECT_GT(faults.size(), 2000U);
  for (const Fault& fault : faults) {
    SCOPED_TRACE(NameOfFault(fault));
    XmlPart document = complete_;
    Plant(document, fault);
    const std::vector<Violation> violations = ViolationsOf(document);
    const std::optional<XmlProblem> first = FirstProblem();
    ASSERT_EQ(violations.empty(), !first.has_value()) << All(violations) << (first ? first->reason : "");
    // Without libxml2, the valid ones are known to be valid, but for an attribute, and no others.
    EXPECT_EQ(testing::FastVerdict::IsValid(*fast_schema_, testing::ReadBytes(file_)),
              violations.empty() && fault.what != "attribute");
    if (!first) continue;
    const FilePlace& told = violations[0].place;
    EXPECT_LE(std::pair(told.line, told.column), std::pair(first->place.line, first->place.column)) << first->reason;
    for (const Violation& violation : violations) {
      for (const Language language : {Language::kPortuguese, Language::kEnglish}) {
        const std::string sentence = Describe(violation, language);
        for (const std::string_view word :
             {"facet", "Element '", "atomic type", "expected", "key-sequence", "agree", "de acordo"}) {
          EXPECT_THAT(sentence, Not(HasSubstr(word)));
        }
        EXPECT_THAT(sentence, HasSubstr(language == Language::kEnglish ? " (line " : " (linha "));
      }
    }
  }
}

// Faults in the children of one element, near to each other and far from each other.
TEST_F(DiagnosisTest, OfTwoFaultsInOneElementBothAreTold) {
  std::set<std::string> kinds;
  int pairs = 0;
  ForEachWay([&](const Way& way) {
    const size_t children = At(complete_, way).children.size();
    if (children == 0 || !kinds.insert(NameOfFault({{}, way})).second) return;
    std::vector<std::vector<std::pair<Fault, std::multiset<std::string>>>> alone(children);
    for (size_t i = 0; i < children; ++i) {
      for (const std::string& what : kFaultsInPairs) {
        Fault fault{what, way};
        fault.way.push_back(i);
        if (!CanBePlanted(complete_, fault)) continue;
        XmlPart document = complete_;
        Plant(document, fault);
        const auto violations = ViolationsOf(document);
        if (violations.size() == 1) alone[i].emplace_back(std::move(fault), Essence(violations));
      }
    }
    for (size_t i = 0; i < children; ++i) {
      for (const size_t j : std::set<size_t>{i + 1, i + 2, children - 1}) {
        if (j <= i || j >= children) continue;
        for (const auto& [one, essence_of_one] : alone[i]) {
          for (const auto& [other, essence_of_other] : alone[j]) {
            if (one.what == "swapped" && j == i + 1) continue;
            // A product that is renamed may be the one that is referred to.
            const bool same_key =
                At(complete_, one.way).name == "Product" && At(complete_, other.way).name == "Product";
            if (same_key && (one.what == "renamed" || other.what == "renamed")) continue;
            std::multiset<std::string> both = essence_of_one;
            both.insert(essence_of_other.begin(), essence_of_other.end());
            XmlPart document = complete_;
            Plant(document, other);
            Plant(document, one);
            const auto violations = ViolationsOf(document);
            ++pairs;
            // Two elements moved past each other may be told as others that moved.
            const bool found =
                one.what == "swapped" || other.what == "swapped" ? violations.size() == 2 : Essence(violations) == both;
            EXPECT_TRUE(found) << NameOfFault(one) << " and " << NameOfFault(other) << "\n" << All(violations);
          }
        }
      }
    }
  });
  EXPECT_GT(pairs, 5'000);
}

// Faults in elements of every two kinds.
TEST_F(DiagnosisTest, OfTwoFaultsInTwoElementsBothAreTold) {
  std::set<std::string> kinds;
  std::vector<std::pair<Fault, std::multiset<std::string>>> alone;
  ForEachWay([&](const Way& way) {
    if (way.empty() || !kinds.insert(NameOfFault({{}, way})).second) return;
    if (At(complete_, way).IsText()) return;
    const Fault fault{"unknown child", way};
    XmlPart document = complete_;
    Plant(document, fault);
    alone.emplace_back(fault, Essence(ViolationsOf(document)));
    ASSERT_EQ(alone.back().second.size(), 1U) << NameOfFault(fault);
  });
  EXPECT_GT(alone.size(), 30U);
  for (const auto& [one, essence_of_one] : alone) {
    for (const auto& [other, essence_of_other] : alone) {
      if (!(one.way < other.way)) continue;
      std::multiset<std::string> both = essence_of_one;
      both.insert(essence_of_other.begin(), essence_of_other.end());
      XmlPart document = complete_;
      Plant(document, other);
      // The first fault shifts nothing but the children of its own element.
      Plant(document, one);
      const auto violations = ViolationsOf(document);
      EXPECT_EQ(Essence(violations), both) << NameOfFault(one) << " and " << NameOfFault(other) << "\n"
                                           << All(violations);
      EXPECT_TRUE(std::ranges::is_sorted(violations, {}, [](const Violation& each) { return each.place.offset; }));
    }
  }
}

// Beside this program there is no schema.
TEST(ValidatorTest, WithoutASchemaAtTheDefaultPlaceTheBuiltInOneCounts) {
  const std::string complete = ZEVO_SCHEMA_CASES "/complete.xml";
  AuditFile file;
  file.set_AuditFileName(complete);
  EXPECT_FALSE(file.ValidateAuditFile());
  EXPECT_TRUE(file.IsSchemaAtFault());
  AuditFileValidator validator;
  validator.set_AuditFileName(complete);
  EXPECT_TRUE(validator.ValidateAuditFile());
  EXPECT_EQ(validator.Violations(), 0);
}

}  // namespace
}  // namespace zevo
