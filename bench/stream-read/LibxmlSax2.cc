#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <cstring>
#include <filesystem>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

const char* Chars(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

/// Parses with handlers that do nothing, and with libxml2's own decoding.
class Sax2Job : public Competitor {
 public:
  explicit Sax2Job(const Setting& setting) : name_(setting.Input()) {}

  void Verify() override {
    xmlSAXHandler handler = Handler();
    handler.startElementNs = [](void* tally, const xmlChar* name, const xmlChar*, const xmlChar*, int, const xmlChar**,
                                int, int, const xmlChar**) { static_cast<ElementTally*>(tally)->Start(Chars(name)); };
    handler.endElementNs = [](void* tally, const xmlChar*, const xmlChar*, const xmlChar*) {
      static_cast<ElementTally*>(tally)->End();
    };
    handler.characters = [](void* tally, const xmlChar* text, int length) {
      static_cast<ElementTally*>(tally)->Text({Chars(text), static_cast<size_t>(length)});
    };
    ElementTally tally;
    Parse(handler, &tally);
    RequireEqual(tally.Found(), TallyOf(name_));
  }

  int64_t Run() override {
    xmlSAXHandler handler = Handler();
    Parse(handler, nullptr);
    return static_cast<int64_t>(std::filesystem::file_size(name_));
  }

 private:
  static xmlSAXHandler Handler() {
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int, int,
                                const xmlChar**) {};
    handler.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handler.characters = [](void*, const xmlChar*, int) {};
    return handler;
  }

  void Parse(xmlSAXHandler& handler, void* data) {
    Require(xmlSAXUserParseFile(&handler, data, name_.c_str()) == 0, "not parsed");
  }

  std::string name_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<Sax2Job>(setting); }

}  // namespace zevo::bench
