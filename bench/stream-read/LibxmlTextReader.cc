// SPDX-License-Identifier: Apache-2.0
#include <libxml/xmlreader.h>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

const char* Chars(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

/// Goes through all nodes.
class TextReaderJob : public ReadingJob {
 public:
  using ReadingJob::ReadingJob;

 private:
  Tally Count(const std::string& name) override {
    ElementTally tally;
    VisitNodes(name, [&](xmlTextReader* reader) {
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
    return tally.Found();
  }

  void Read(const std::string& name) override {
    VisitNodes(name, [](xmlTextReader*) {});
  }

  template <class Visitor>
  static void VisitNodes(const std::string& name, Visitor&& visitor) {
    xmlTextReader* reader = xmlReaderForFile(name.c_str(), nullptr, 0);
    int result = 0;
    while ((result = xmlTextReaderRead(reader)) == 1) visitor(reader);
    xmlFreeTextReader(reader);
    Require(result == 0, "not read");
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TextReaderJob>(setting); }

}  // namespace zevo::bench
