// SPDX-License-Identifier: Apache-2.0
#include <pugixml.hpp>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Loads the tree. Pugixml does not know Windows-1252; of the sample's bytes, all mean what they mean in the encoding
/// that it is told instead.
class PugixmlJob : public ReadingJob {
 public:
  using ReadingJob::ReadingJob;

 private:
  Tally Count(const std::string& name) override {
    pugi::xml_document document;
    Load(name, document);
    ElementTally tally;
    Visit(document.document_element(), tally);
    return tally.Found();
  }

  void Read(const std::string& name) override {
    pugi::xml_document document;
    Load(name, document);
  }

  static void Load(const std::string& name, pugi::xml_document& document) {
    Require(document.load_file(name.c_str(), pugi::parse_default, pugi::encoding_latin1), "not loaded");
  }

  static void Visit(const pugi::xml_node& element, ElementTally& tally) {
    tally.Start(element.name());
    for (const pugi::xml_node& child : element) {
      if (child.type() == pugi::node_pcdata) tally.Text(child.value());
      if (child.type() == pugi::node_element) Visit(child, tally);
    }
    tally.End();
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<PugixmlJob>(setting); }

}  // namespace zevo::bench
