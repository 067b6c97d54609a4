#include <filesystem>
#include <pugixml.hpp>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Loads the tree. Pugixml does not know Windows-1252; of the sample's bytes, all mean what they mean in the encoding
/// that it is told instead.
class PugixmlJob : public Competitor {
 public:
  explicit PugixmlJob(const Setting& setting) : name_(setting.Input()) {}

  void Verify() override {
    pugi::xml_document document;
    Load(document);
    ElementTally tally;
    Count(document.document_element(), tally);
    RequireEqual(tally.Found(), TallyOf(name_));
  }

  int64_t Run() override {
    pugi::xml_document document;
    Load(document);
    return static_cast<int64_t>(std::filesystem::file_size(name_));
  }

 private:
  void Load(pugi::xml_document& document) {
    Require(document.load_file(name_.c_str(), pugi::parse_default, pugi::encoding_latin1), "not loaded");
  }

  static void Count(const pugi::xml_node& element, ElementTally& tally) {
    tally.Start(element.name());
    for (const pugi::xml_node& child : element) {
      if (child.type() == pugi::node_pcdata) tally.Text(child.value());
      if (child.type() == pugi::node_element) Count(child, tally);
    }
    tally.End();
  }

  std::string name_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<PugixmlJob>(setting); }

}  // namespace zevo::bench
