// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_RESTOFEVENTS_H_
#define ZEVO_PLATFORM_RESTOFEVENTS_H_

#include <zevo/platform/Parser.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace zevo {

class FastNames;

/// How much a parse has handed over: events that are no text, or a CDATA section without any, and bytes of text since
/// the last.
struct EventCount {
  uint64_t events = 0;
  uint64_t text = 0;
};

/// Stands before a handler that has got the beginning of a file already, and passes on what comes behind that of
/// another parse of the same file.
class RestOfEvents final : public ParserHandler {
 public:
  /// `names` are those of a parse on the fast path, by which the handler knows names; null where the parse before was
  /// libxml2's as well and has told no names that still count.
  RestOfEvents(ParserHandler& handler, const EventCount& before, FastNames* names)
      : handler_(handler), events_(before.events), text_(before.text), names_(names) {}

  /// Whether all has come that the handler has got before.
  bool HasCaughtUp() const { return events_ == 0 && text_ == 0; }

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override;
  void EndElement(const ParsedName& name) override;
  void EndEmptyTag(const ParsedName& name) override;
  void Characters(std::string_view text) override {
    if (Left(text)) handler_.Characters(text);
  }
  // An empty section counts as an event.
  void CData(std::string_view text) override {
    if (text.empty() ? Passes() : Left(text)) handler_.CData(text);
  }
  void Comment(std::string_view text) override {
    if (Passes()) handler_.Comment(text);
  }
  void Instruction(std::string_view target, std::string_view data) override {
    if (Passes()) handler_.Instruction(target, data);
  }
  void Standalone() override {
    if (Passes()) handler_.Standalone();
  }

 private:
  bool Passes();
  ParsedName Close(const ParsedName& name);
  bool Left(std::string_view& text);
  ParsedName AsKnown(const ParsedName& name);
  ParsedName Interned(const ParsedName& name);

  ParserHandler& handler_;
  uint64_t events_;
  uint64_t text_;
  FastNames* names_;
  std::vector<ParsedName> later_;  // by number, behind those of the fast path; without a text until they come
  std::vector<ParsedName> open_;   // as the handler knows them; where there are such names
  std::vector<ParsedAttribute> attributes_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_RESTOFEVENTS_H_
