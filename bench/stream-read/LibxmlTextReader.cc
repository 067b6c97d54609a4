#include <libxml/xmlreader.h>

#include <filesystem>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

const char* Chars(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

/// Goes through all nodes.
class TextReaderJob : public Competitor {
 public:
  explicit TextReaderJob(const Setting& setting) : name_(setting.Input()) {}

  void Verify() override {
    ElementTally tally;
    Read([&](xmlTextReader* reader) {
      switch (xmlTextReaderNodeType(reader)) {
        case XML_READER_TYPE_ELEMENT:
          tally.Start(Chars(xmlTextReaderConstLocalName(reader)));
          break;
        case XML_READER_TYPE_TEXT:
          tally.Text(Chars(xmlTextReaderConstValue(reader)));
          break;
        case XML_READER_TYPE_END_ELEMENT:
          tally.End();
          break;
        default:
          break;
      }
    });
    RequireEqual(tally.Found(), TallyOf(name_));
  }

  int64_t Run() override {
    Read([](xmlTextReader*) {});
    return static_cast<int64_t>(std::filesystem::file_size(name_));
  }

 private:
  template <class Visitor>
  void Read(Visitor&& visitor) {
    xmlTextReader* reader = xmlReaderForFile(name_.c_str(), nullptr, 0);
    int result = 0;
    while ((result = xmlTextReaderRead(reader)) == 1) visitor(reader);
    xmlFreeTextReader(reader);
    Require(result == 0, "not read");
  }

  std::string name_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TextReaderJob>(setting); }

}  // namespace zevo::bench
