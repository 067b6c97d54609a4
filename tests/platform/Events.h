// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_EVENTS_H_
#define ZEVO_TESTS_PLATFORM_EVENTS_H_

#include <zevo/platform/Parser.h>

#include <span>
#include <string>
#include <string_view>

namespace zevo::testing {

/// Takes down what a parser delivers: `<p:name a=value>`, `</p:name>`, `<p:name/>`, text as it is, `[CDATA:text]`,
/// `[comment:text]`, `[target:data]`, `[standalone]`.
class Events : public ParserHandler {
 public:
  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    log += "<" + Qualified(name);
    for (const ParsedAttribute& attribute : attributes) {
      log += " " + Qualified(attribute.name) + "=" + std::string(attribute.value);
    }
    log += ">";
  }
  void EndElement(const ParsedName& name) override { log += "</" + Qualified(name) + ">"; }
  void EndEmptyTag(const ParsedName&) override { log.insert(log.size() - 1, "/"); }
  void Characters(std::string_view text) override { log += text; }
  void CData(std::string_view text) override { log.append("[CDATA:").append(text).append("]"); }
  void Comment(std::string_view text) override { log.append("[comment:").append(text).append("]"); }
  void Instruction(std::string_view target, std::string_view data) override {
    log.append("[").append(target).append(":").append(data).append("]");
  }
  void Standalone() override { log += "[standalone]"; }

  std::string log;

 private:
  static std::string Qualified(const ParsedName& name) {
    return name.prefix == nullptr ? name.local : std::string(name.prefix) + ":" + name.local;
  }
};

/// Takes no notice.
class NoEvents : public ParserHandler {
 public:
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override {}
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_EVENTS_H_
