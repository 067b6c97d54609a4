// SPDX-License-Identifier: Apache-2.0
#include <libxml/tree.h>

#include <memory>
#include <string>

#include "bench/ElementPool.h"
#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Builds the same elements by hand and saves the tree.
class TreeJob : public WritingJob {
 public:
  explicit TreeJob(const Setting& setting) : WritingJob(setting), pool_(setting.Pool()) {}

 private:
  void Write(const std::string& name, int64_t count) override {
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(xmlNewDoc(BAD_CAST "1.0"), &xmlFreeDoc);
    xmlNode* root = xmlNewDocNode(document.get(), nullptr, BAD_CAST "AuditFile", nullptr);
    xmlDocSetRootElement(document.get(), root);
    xmlNode* journal = Add(Add(root, "GeneralLedgerEntries"), "Journal");
    for (int64_t i = 0; i < count; ++i) Build(pool_.TransactionAt(i), journal);
    xmlNode* invoices = Add(Add(root, "SourceDocuments"), "SalesInvoices");
    for (int64_t i = 0; i < count; ++i) Build(pool_.InvoiceAt(i), invoices);
    Require(xmlSaveFileEnc(name.c_str(), document.get(), "windows-1252") > 0, "not saved");
  }

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

  ElementPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TreeJob>(setting); }

}  // namespace zevo::bench
