// SPDX-License-Identifier: Apache-2.0
#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <cstring>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

const char* Chars(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

/// Parses with handlers that do nothing, and with libxml2's own decoding.
class Sax2Job : public ReadingJob {
 public:
  using ReadingJob::ReadingJob;

 private:
  Tally Count(const std::string& name) override {
    xmlSAXHandler handler = Handler();
    handler.startElementNs = [](void* tally, const xmlChar* local, const xmlChar*, const xmlChar*, int, const xmlChar**,
                                int, int, const xmlChar**) { static_cast<ElementTally*>(tally)->Start(Chars(local)); };
    handler.endElementNs = [](void* tally, const xmlChar*, const xmlChar*, const xmlChar*) {
      static_cast<ElementTally*>(tally)->End();
    };
    handler.characters = [](void* tally, const xmlChar* text, int length) {
      static_cast<ElementTally*>(tally)->Text({Chars(text), static_cast<size_t>(length)});
    };
    ElementTally tally;
    Parse(name, handler, &tally);
    return tally.Found();
  }

  void Read(const std::string& name) override {
    xmlSAXHandler handler = Handler();
    Parse(name, handler, nullptr);
  }

  static xmlSAXHandler Handler() {
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int, int,
                                const xmlChar**) {};
    handler.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handler.characters = [](void*, const xmlChar*, int) {};
    return handler;
  }

  static void Parse(const std::string& name, xmlSAXHandler& handler, void* data) {
    Require(xmlSAXUserParseFile(&handler, data, name.c_str()) == 0, "not parsed");
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<Sax2Job>(setting); }

}  // namespace zevo::bench
