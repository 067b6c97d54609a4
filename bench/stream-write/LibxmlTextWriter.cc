// SPDX-License-Identifier: Apache-2.0
#include <libxml/xmlwriter.h>

#include <memory>
#include <string>

#include "bench/ElementPool.h"
#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Writes the same elements, from trees that are there.
class TextWriterJob : public WritingJob {
 public:
  explicit TextWriterJob(const Setting& setting) : WritingJob(setting), pool_(setting.Pool()) {}

 private:
  void Write(const std::string& name, int64_t count) override {
    xmlTextWriter* writer = xmlNewTextWriterFilename(name.c_str(), 0);
    xmlTextWriterStartDocument(writer, nullptr, "windows-1252", nullptr);
    Start(writer, {"AuditFile", "GeneralLedgerEntries", "Journal"});
    for (int64_t i = 0; i < count; ++i) Write(writer, pool_.TransactionAt(i));
    xmlTextWriterEndElement(writer);
    xmlTextWriterEndElement(writer);
    Start(writer, {"SourceDocuments", "SalesInvoices"});
    for (int64_t i = 0; i < count; ++i) Write(writer, pool_.InvoiceAt(i));
    Require(xmlTextWriterEndDocument(writer) >= 0, "not written");
    xmlFreeTextWriter(writer);
  }

  static void Start(xmlTextWriter* writer, std::initializer_list<const char*> names) {
    for (const char* name : names) xmlTextWriterStartElement(writer, BAD_CAST name);
  }

  static void Write(xmlTextWriter* writer, const xmlNode* element) {
    xmlTextWriterStartElement(writer, element->name);
    for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
      if (child->type == XML_TEXT_NODE) {
        xmlTextWriterWriteString(writer, child->content);
      } else {
        Write(writer, child);
      }
    }
    xmlTextWriterEndElement(writer);
  }

  ElementPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TextWriterJob>(setting); }

}  // namespace zevo::bench
