#include <libxml/parser.h>
#include <libxml/tree.h>

#include <filesystem>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Loads the tree.
class TreeJob : public Competitor {
 public:
  explicit TreeJob(const Setting& setting) : name_(setting.Input()) {}

  void Verify() override {
    xmlDoc* document = Load();
    ElementTally tally;
    Count(xmlDocGetRootElement(document), tally);
    xmlFreeDoc(document);
    RequireEqual(tally.Found(), TallyOf(name_));
  }

  int64_t Run() override {
    xmlFreeDoc(Load());
    return static_cast<int64_t>(std::filesystem::file_size(name_));
  }

 private:
  xmlDoc* Load() {
    xmlDoc* document = xmlReadFile(name_.c_str(), nullptr, XML_PARSE_HUGE);
    Require(document != nullptr, "not loaded");
    return document;
  }

  static void Count(const xmlNode* element, ElementTally& tally) {
    tally.Start(reinterpret_cast<const char*>(element->name));
    for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
      if (child->type == XML_TEXT_NODE) tally.Text(reinterpret_cast<const char*>(child->content));
      if (child->type == XML_ELEMENT_NODE) Count(child, tally);
    }
    tally.End();
  }

  std::string name_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TreeJob>(setting); }

}  // namespace zevo::bench
