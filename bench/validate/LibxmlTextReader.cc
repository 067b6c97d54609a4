// SPDX-License-Identifier: Apache-2.0
#include <libxml/xmlreader.h>
#include <libxml/xmlschemas.h>

#include <memory>
#include <string>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Does what `xmllint --stream --schema` does, the loading of the schema included.
class TextReaderJob : public ValidatingJob {
 public:
  explicit TextReaderJob(const Setting& setting) : ValidatingJob(setting) {
    // Quiet about the invalid file.
    xmlSetStructuredErrorFunc(nullptr, [](void*, xmlErrorPtr) {});
  }

 private:
  bool IsValid(const std::string& name) override {
    xmlSchemaParserCtxt* context = xmlSchemaNewParserCtxt(ZEVO_SCHEMA_FILE);
    xmlSchema* schema = xmlSchemaParse(context);
    xmlTextReader* reader = xmlReaderForFile(name.c_str(), nullptr, 0);
    xmlTextReaderSetSchema(reader, schema);
    int result = 0;
    while ((result = xmlTextReaderRead(reader)) == 1) {
    }
    const bool valid = result == 0 && xmlTextReaderIsValid(reader) == 1;
    xmlFreeTextReader(reader);
    xmlSchemaFree(schema);
    xmlSchemaFreeParserCtxt(context);
    return valid;
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TextReaderJob>(setting); }

}  // namespace zevo::bench
