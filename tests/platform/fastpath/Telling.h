// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_FASTPATH_TELLING_H_
#define ZEVO_TESTS_PLATFORM_FASTPATH_TELLING_H_

#include <zevo/FilePlace.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/RestOfEvents.h>
#include <zevo/platform/XmlProblem.h>
#include <zevo/platform/fastpath/FastPath.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::testing {

/// Has files taken on the fast path or not, until its end.
class WithFastPath {
 public:
  explicit WithFastPath(bool on) : before_(IsFastPathOn()) { SetFastPath(on); }
  WithFastPath(const WithFastPath&) = delete;
  WithFastPath& operator=(const WithFastPath&) = delete;
  ~WithFastPath() { SetFastPath(before_); }

 private:
  bool before_;
};

/// What a parse tells of a file.
struct Telling {
  /// An event each, pieces of a text together: `<p:name #1 a #2=value>`, `</p:name>`, `/>`, `text:`, `CDATA:`,
  /// `comment:`, `target:data` and `standalone`. The numbers are those of the names.
  std::vector<std::string> events;
  /// Of the start tags, where they were asked for.
  std::vector<FilePlace> places;
  std::optional<XmlProblem> problem;
  /// What names are told against the rules of ParserHandler; empty where they are told by them.
  std::string broken_rule;
};

/// The first thing in which two differ; empty where they are alike. A place that was not expected to be known may be,
/// and what was expected to break a rule need not.
std::string Difference(const Telling& found, const Telling& expected);

/// Takes down what a parse tells.
class Teller final : public ParserHandler {
 public:
  using PlaceOf = std::function<FilePlace(std::string_view localName)>;

  /// Asks `placeOf` at each start tag, if there is one.
  explicit Teller(PlaceOf placeOf = {}) : place_of_(std::move(placeOf)) {}

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override;
  void EndElement(const ParsedName& name) override;
  void EndEmptyTag(const ParsedName& name) override;
  void Characters(std::string_view text) override { Add("text:", text); }
  void CData(std::string_view text) override { Add("CDATA:", text); }
  void Comment(std::string_view text) override { told_.events.push_back("comment:" + std::string(text)); }
  void Instruction(std::string_view target, std::string_view data) override {
    told_.events.push_back(std::string(target).append(":").append(data));
  }
  void Standalone() override { told_.events.emplace_back("standalone"); }

  /// All of it, with what ended the parse.
  Telling Told(std::optional<XmlProblem> problem);

 private:
  std::string Known(const ParsedName& name);
  void Close(const ParsedName& name);
  void Add(std::string_view kind, std::string_view text);
  void Break(std::string rule);

  PlaceOf place_of_;
  Telling told_;
  std::map<std::string, uint32_t> numbers_;   // of names
  std::map<std::string, const char*> parts_;  // of names, by their text
  std::vector<ParsedName> open_;
};

/// What Parser and PulledParse tell of a file.
Telling ToldByParser(std::string_view bytes);
/// With places; of a file, since that is what there is. Of one with a problem nothing is told of broken rules: libxml2
/// may parse it anew from the beginning, and then names are other pointers.
Telling ToldByPulledParse(const std::string& path);

/// How a parse on the fast path went, with pieces of some length.
struct FastTelling {
  Telling told;
  bool taken = false;  ///< to its end; otherwise libxml2 went on
  EventCount count;    ///< what was told before that
};
FastTelling ToldInPieces(std::string_view bytes, size_t room);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_FASTPATH_TELLING_H_
