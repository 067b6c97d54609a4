// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/ChoicesFile.h"

#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <limits>
#include <span>
#include <sstream>
#include <string>
#include <string_view>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CheckWords.h"
#include "tools/saft/words/ErrorWords.h"
#include "tools/saft/words/FileWords.h"

namespace zevo::saft {
namespace {

// One file of choices.
class ChoicesFile {
 public:
  explicit ChoicesFile(const std::string& file) : file_(file) {}

  CheckChoices Read() const {
    const toml::table all = Parse();
    static constexpr std::array<std::string_view, 4> kSettings{"severity", "public-keys", "max", "schema"};
    RequireKnown(all, kSettings);
    CheckChoices choices;
    if (const toml::node* const severity = all.get("severity")) TakeSeverities(*severity, choices);
    if (const toml::node* const keys = all.get("public-keys")) TakeKeys(*keys, choices);
    if (const toml::node* const most = all.get("max")) choices.most = CountOf("max", *most);
    if (const toml::node* const schema = all.get("schema")) choices.schema = FileOf("schema", *schema);
    return choices;
  }

 private:
  toml::table Parse() const {
    try {
      return toml::parse(Text());
    } catch (const toml::parse_error& error) {
      Fail(error.source(), Say(words::kNoToml));
    }
  }

  std::string Text() const {
    RequireRegularFile(file_);
    std::ifstream stream(file_, std::ios::binary);
    std::ostringstream text;
    if (stream.is_open()) text << stream.rdbuf();
    if (!stream.is_open() || stream.bad()) FailWithSystemError(errno, file_);
    return text.str();
  }

  [[noreturn]] void Fail(const toml::source_region& at, std::string_view reason) const {
    throw Failure(file_ + ":" + std::to_string(at.begin.line) + ":" + std::to_string(at.begin.column), reason);
  }

  void RequireKnown(const toml::table& table, std::span<const std::string_view> known) const {
    for (const auto& [key, value] : table) {
      if (std::ranges::find(known, key.str()) != known.end()) continue;
      Fail(key.source(), Say(words::kUnknownSetting, Quoted(key.str())) + DidYouMean(key.str(), known));
    }
  }

  std::string TextOf(std::string_view name, const toml::node& value) const {
    const auto* const text = value.as_string();
    if (text == nullptr) Fail(value.source(), Say(words::kNoText, Quoted(name)));
    return text->get();
  }

  int CountOf(std::string_view name, const toml::node& value) const {
    const auto* const number = value.as_integer();
    if (number == nullptr || number->get() < 0 || number->get() > std::numeric_limits<int>::max()) {
      Fail(value.source(), Say(words::kNoNumber, Quoted(name)));
    }
    return static_cast<int>(number->get());
  }

  std::string FileOf(std::string_view name, const toml::node& value) const {
    const std::string named = TextOf(name, value);
    if (named.empty()) Fail(value.source(), Quoted(name) + " " + Say(words::kNamesNoFile));
    return (std::filesystem::path(file_).parent_path() / named).string();
  }

  void TakeSeverities(const toml::node& value, CheckChoices& choices) const {
    const toml::table* const table = value.as_table();
    if (table == nullptr) Fail(value.source(), Say(words::kNoTable, Quoted("severity")));
    for (const auto& [rule, severity] : *table) {
      const std::string name = TextOf(rule.str(), severity);
      try {
        choices.severities.push_back(MakeRuleSeverity(rule.str(), name));
      } catch (const Failure& failure) {
        Fail(rule.source(), failure.what());
      }
    }
  }

  [[noreturn]] void RefuseKeys(const toml::node& at) const {
    Fail(at.source(), Say(words::kNoTables, Quoted("public-keys")));
  }

  void TakeKeys(const toml::node& value, CheckChoices& choices) const {
    static constexpr std::array<std::string_view, 2> kMembers{"file", "version"};
    const toml::array* const keys = value.as_array();
    if (keys == nullptr) RefuseKeys(value);
    for (const toml::node& each : *keys) {
      const toml::table* const key = each.as_table();
      if (key == nullptr) RefuseKeys(each);
      RequireKnown(*key, kMembers);
      const toml::node* const file = key->get("file");
      if (file == nullptr) RefuseKeys(each);
      const toml::node* const version = key->get("version");
      choices.public_keys.push_back({FileOf("file", *file), version == nullptr ? 0 : CountOf("version", *version)});
    }
  }

  const std::string& file_;
};

}  // namespace

CheckChoices ReadChoicesFile(const std::string& file) { return ChoicesFile(file).Read(); }

}  // namespace zevo::saft
