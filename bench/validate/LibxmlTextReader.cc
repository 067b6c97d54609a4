#include <libxml/xmlreader.h>
#include <libxml/xmlschemas.h>

#include <filesystem>
#include <memory>

#include "bench/Competitor.h"
#include "bench/InvalidFile.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Does what `xmllint --stream --schema` does, the loading of the schema included.
class TextReaderJob : public Competitor {
 public:
  explicit TextReaderJob(const Setting& setting) : setting_(setting) {
    // Quiet about the invalid file.
    xmlSetStructuredErrorFunc(nullptr, [](void*, xmlErrorPtr) {});
  }

  void Verify() override {
    Require(!IsValid(InvalidFile(setting_)), "an invalid file was accepted");
    Run();
  }

  int64_t Run() override {
    Require(IsValid(setting_.Input()), "a valid file was refused");
    return static_cast<int64_t>(std::filesystem::file_size(setting_.Input()));
  }

 private:
  static bool IsValid(const std::string& name) {
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

  Setting setting_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<TextReaderJob>(setting); }

}  // namespace zevo::bench
