#include <libxml/tree.h>

#include <filesystem>
#include <memory>

#include "bench/Competitor.h"
#include "bench/ElementPool.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Builds the same elements by hand and saves the tree.
class TreeJob : public Competitor {
 public:
  explicit TreeJob(const Setting& setting) : setting_(setting), pool_(setting.Pool()) {}

  void Verify() override {
    Run();
    RequireEqual(TallyOf(setting_.Output()), TallyOf(setting_.Pool()).Times(setting_.invoices / kPool));
  }

  int64_t Run() override {
    const std::string name = setting_.Output();
    std::filesystem::remove(name);
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(xmlNewDoc(BAD_CAST "1.0"), &xmlFreeDoc);
    xmlNode* root = xmlNewDocNode(document.get(), nullptr, BAD_CAST "AuditFile", nullptr);
    xmlDocSetRootElement(document.get(), root);
    xmlNode* journal = Add(Add(root, "GeneralLedgerEntries"), "Journal");
    for (int64_t i = 0; i < setting_.invoices; ++i) Build(pool_.TransactionAt(i), journal);
    xmlNode* invoices = Add(Add(root, "SourceDocuments"), "SalesInvoices");
    for (int64_t i = 0; i < setting_.invoices; ++i) Build(pool_.InvoiceAt(i), invoices);
    Require(xmlSaveFileEnc(name.c_str(), document.get(), "windows-1252") > 0, "not saved");
    return static_cast<int64_t>(std::filesystem::file_size(name));
  }

 private:
  static xmlNode* Add(xmlNode* parent, const char* name) {
    return xmlAddChild(parent, xmlNewDocNode(parent->doc, nullptr, BAD_CAST name, nullptr));
  }

  static void Build(const xmlNode* from, xmlNode* parent) {
    xmlNode* element = Add(parent, reinterpret_cast<const char*>(from->name));
    for (const xmlNode* child = from->children; child != nullptr; child = child->next) {
      if (child->type == XML_TEXT_NODE) {
        xmlAddChild(element, xmlNewDocText(element->doc, child->content));
      } else {
        Build(child, element);
      }
    }
  }

  Setting setting_;
  ElementPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TreeJob>(setting); }

}  // namespace zevo::bench
