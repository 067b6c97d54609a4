// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTEVENTS_H_
#define ZEVO_PLATFORM_FASTPATH_FASTEVENTS_H_

#include <zevo/platform/Parser.h>
#include <zevo/platform/RestOfEvents.h>
#include <zevo/platform/fastpath/FastNames.h>

#include <span>
#include <string_view>

namespace zevo {

/// Passes what comes on the fast path to a handler, and counts it.
class FastEvents {
 public:
  /// The handler must outlive this.
  explicit FastEvents(ParserHandler& handler) : handler_(handler) {}

  const EventCount& Count() const { return count_; }

  // The sink of FastParse.

  bool Standalone() {
    Add(1);
    handler_.Standalone();
    return true;
  }
  bool StartElement(const FastName& name, std::span<const ParsedAttribute> attributes) {
    Add(1);
    handler_.StartElement(name.Parsed(), attributes);
    return true;
  }
  bool EndElement(const FastName& name) {
    Add(1);
    handler_.EndElement({name.Parsed().local, name.Parsed().prefix});
    return true;
  }
  bool EndEmptyTag(const FastName& name) {
    Add(1);
    handler_.EndEmptyTag({name.Parsed().local, name.Parsed().prefix});
    return true;
  }
  bool Leaf(const FastName& name, std::string_view text) {
    Add(2);
    handler_.Leaf(name.Parsed(), text);
    return true;
  }
  bool Characters(std::string_view text) {
    count_.text += text.size();
    handler_.Characters(text);
    return true;
  }
  bool Comment(std::string_view text) {
    Add(1);
    handler_.Comment(text);
    return true;
  }

 private:
  void Add(uint64_t events) {
    count_.events += events;
    count_.text = 0;
  }

  ParserHandler& handler_;
  EventCount count_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTEVENTS_H_
