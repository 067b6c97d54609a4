// SPDX-License-Identifier: Apache-2.0
#include <libxml/parser.h>
#include <libxml/tree.h>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Loads the tree.
class TreeJob : public ReadingJob {
 public:
  using ReadingJob::ReadingJob;

 private:
  Tally Count(const std::string& name) override {
    xmlDoc* document = Load(name);
    ElementTally tally;
    Visit(xmlDocGetRootElement(document), tally);
    xmlFreeDoc(document);
    return tally.Found();
  }

  void Read(const std::string& name) override { xmlFreeDoc(Load(name)); }

  static xmlDoc* Load(const std::string& name) {
    xmlDoc* document = xmlReadFile(name.c_str(), nullptr, XML_PARSE_HUGE);
    Require(document != nullptr, "not loaded");
    return document;
  }

  static void Visit(const xmlNode* element, ElementTally& tally) {
    tally.Start(reinterpret_cast<const char*>(element->name));
    for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
      if (child->type == XML_TEXT_NODE) tally.Text(reinterpret_cast<const char*>(child->content));
      if (child->type == XML_ELEMENT_NODE) Visit(child, tally);
    }
    tally.End();
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TreeJob>(setting); }

}  // namespace zevo::bench
