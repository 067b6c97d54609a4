#include <filesystem>
#include <memory>
#include <pugixml.hpp>

#include "bench/Competitor.h"
#include "bench/ElementPool.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Builds the same elements by hand and saves the tree.
class PugixmlJob : public Competitor {
 public:
  explicit PugixmlJob(const Setting& setting) : setting_(setting), pool_(setting.Pool()) {}

  void Verify() override {
    Run();
    RequireEqual(TallyOf(setting_.Output()), TallyOf(setting_.Pool()).Times(setting_.invoices / kPool));
  }

  int64_t Run() override {
    const std::string name = setting_.Output();
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("AuditFile");
    pugi::xml_node journal = root.append_child("GeneralLedgerEntries").append_child("Journal");
    for (int64_t i = 0; i < setting_.invoices; ++i) Build(pool_.TransactionAt(i), journal);
    pugi::xml_node invoices = root.append_child("SourceDocuments").append_child("SalesInvoices");
    for (int64_t i = 0; i < setting_.invoices; ++i) Build(pool_.InvoiceAt(i), invoices);
    Require(document.save_file(name.c_str(), "", pugi::format_raw, pugi::encoding_latin1), "not saved");
    return static_cast<int64_t>(std::filesystem::file_size(name));
  }

 private:
  static void Build(const xmlNode* from, pugi::xml_node& parent) {
    pugi::xml_node element = parent.append_child(reinterpret_cast<const char*>(from->name));
    for (const xmlNode* child = from->children; child != nullptr; child = child->next) {
      if (child->type == XML_TEXT_NODE) {
        element.append_child(pugi::node_pcdata).set_value(reinterpret_cast<const char*>(child->content));
      } else {
        Build(child, element);
      }
    }
  }

  Setting setting_;
  ElementPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<PugixmlJob>(setting); }

}  // namespace zevo::bench
