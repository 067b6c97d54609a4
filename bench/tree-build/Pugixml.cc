// SPDX-License-Identifier: Apache-2.0
#include <memory>
#include <pugixml.hpp>
#include <string>

#include "bench/ElementPool.h"
#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Builds the same elements by hand and saves the tree.
class PugixmlJob : public WritingJob {
 public:
  explicit PugixmlJob(const Setting& setting) : WritingJob(setting), pool_(setting.Pool()) {}

 private:
  void Write(const std::string& name, int64_t count) override {
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("AuditFile");
    pugi::xml_node journal = root.append_child("GeneralLedgerEntries").append_child("Journal");
    for (int64_t i = 0; i < count; ++i) Build(pool_.TransactionAt(i), journal);
    pugi::xml_node invoices = root.append_child("SourceDocuments").append_child("SalesInvoices");
    for (int64_t i = 0; i < count; ++i) Build(pool_.InvoiceAt(i), invoices);
    Require(document.save_file(name.c_str(), "", pugi::format_raw, pugi::encoding_latin1), "not saved");
  }

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

  ElementPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<PugixmlJob>(setting); }

}  // namespace zevo::bench
