// The façades that hold a whole file, against what a program would use instead. Each job checks what it did.

#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlreader.h>
#include <libxml/xmlschemas.h>
#include <zevo/adapters.h>

#include <filesystem>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "bench/BenchFiles.h"
#include "tools/generate/SampleRecords.h"

namespace zevo::bench {
namespace {

// Writes the sample through `AuditFile`.
void BuildFile(const std::string& name) {
  std::filesystem::remove(name);
  AuditFile file;
  file.set_AuditFileName(name);
  generate::WriteTo(file, generate::SampleRecords(Invoices(), 1));
}

void ReadAllRecords(benchmark::State& state) {
  const std::string& name = SampleFile();
  for (auto _ : state) {
    AuditFileReader reader;
    reader.set_AuditFileName(name);
    bool good = reader.OpenAuditFile();
    int records = 0;
    std::shared_ptr<Customer> customer;
    while (good && (good = reader.ReadCustomer(customer)) && customer) ++records;
    std::shared_ptr<Product> product;
    while (good && (good = reader.ReadProduct(product)) && product) ++records;
    std::shared_ptr<Journal> journal;
    while (good && (good = reader.ReadJournal(journal)) && journal) {
      std::shared_ptr<Transaction> transaction;
      while (good && (good = reader.ReadTransaction(transaction, *journal)) && transaction) {
        records += transaction->Line()->Count();
      }
    }
    std::shared_ptr<Invoice> invoice;
    while (good && (good = reader.ReadInvoice(invoice)) && invoice) records += invoice->Line()->Count();
    Require(state, good && records == 2000 + 5 * Invoices(), "records are missing");
  }
  SetBytes(state, name);
}
BENCHMARK(ReadAllRecords)->Unit(benchmark::kMillisecond);

void LoadWithLibxml(benchmark::State& state) {
  const std::string& name = SampleFile();
  for (auto _ : state) {
    xmlDoc* document = xmlReadFile(name.c_str(), nullptr, XML_PARSE_HUGE);
    Require(state, document != nullptr && xmlChildElementCount(xmlDocGetRootElement(document)) == 4, "not loaded");
    xmlFreeDoc(document);
  }
  SetBytes(state, name);
}
BENCHMARK(LoadWithLibxml)->Unit(benchmark::kMillisecond);

void LoadWithPugixml(benchmark::State& state) {
  const std::string& name = SampleFile();
  for (auto _ : state) {
    pugi::xml_document document;
    const bool good = document.load_file(name.c_str());
    Require(state, good && document.child("AuditFile").child("SourceDocuments"), "not loaded");
  }
  SetBytes(state, name);
}
BENCHMARK(LoadWithPugixml)->Unit(benchmark::kMillisecond);

void BuildAndSave(benchmark::State& state) {
  const std::string name = FileName("zevo-bench-written.xml");
  for (auto _ : state) BuildFile(name);
  Require(state, std::filesystem::file_size(name) > std::filesystem::file_size(SampleFile()), "too short");
  SetBytes(state, name);
  std::filesystem::remove(name);
}
BENCHMARK(BuildAndSave)->Unit(benchmark::kMillisecond);

void CopyByHand(const xmlNode* from, xmlDoc* document, xmlNode* to) {
  for (const xmlNode* child = from->children; child != nullptr; child = child->next) {
    if (child->type == XML_TEXT_NODE) {
      xmlAddChild(to, xmlNewDocText(document, child->content));
    } else if (child->type == XML_ELEMENT_NODE) {
      CopyByHand(child, document, xmlAddChild(to, xmlNewDocNode(document, nullptr, child->name, nullptr)));
    }
  }
}

void BuildAndSaveWithLibxml(benchmark::State& state) {
  const std::string name = FileName("zevo-bench-libxml.xml");
  xmlDoc* source = xmlReadFile(SampleFile().c_str(), nullptr, XML_PARSE_HUGE);
  for (auto _ : state) {
    xmlDoc* document = xmlNewDoc(BAD_CAST "1.0");
    xmlNode* root = xmlNewDocNode(document, nullptr, BAD_CAST "AuditFile", nullptr);
    xmlDocSetRootElement(document, root);
    CopyByHand(xmlDocGetRootElement(source), document, root);
    Require(state, xmlSaveFileEnc(name.c_str(), document, "windows-1252") > 0, "not saved");
    xmlFreeDoc(document);
  }
  xmlFreeDoc(source);
  SetBytes(state, name);
  std::filesystem::remove(name);
}
BENCHMARK(BuildAndSaveWithLibxml)->Unit(benchmark::kMillisecond);

void Validate(benchmark::State& state) {
  AuditFile file;
  file.set_AuditFileName(SampleFile());
  for (auto _ : state) Require(state, file.ValidateAuditFile(), "not valid");
  SetBytes(state, SampleFile());
}
BENCHMARK(Validate)->Unit(benchmark::kMillisecond);

// What `xmllint --stream --schema` does.
void ValidateWithLibxmlReader(benchmark::State& state) {
  const std::string& name = SampleFile();
  for (auto _ : state) {
    xmlSchemaParserCtxt* context = xmlSchemaNewParserCtxt(ZEVO_SCHEMA_FILE);
    xmlSchema* schema = xmlSchemaParse(context);
    xmlTextReader* reader = xmlReaderForFile(name.c_str(), nullptr, 0);
    xmlTextReaderSetSchema(reader, schema);
    while (xmlTextReaderRead(reader) == 1) {
    }
    Require(state, xmlTextReaderIsValid(reader) == 1, "not valid");
    xmlFreeTextReader(reader);
    xmlSchemaFree(schema);
    xmlSchemaFreeParserCtxt(context);
  }
  SetBytes(state, name);
}
BENCHMARK(ValidateWithLibxmlReader)->Unit(benchmark::kMillisecond);

void ValidateWithXerces(benchmark::State& state) {
  namespace xerces = xercesc;
  xerces::XMLPlatformUtils::Initialize();
  struct Handler : xerces::DefaultHandler {
    void error(const xerces::SAXParseException&) override { ++errors; }
    void fatalError(const xerces::SAXParseException&) override { ++errors; }
    void endElement(const XMLCh*, const XMLCh*, const XMLCh*) override { ++elements; }
    int errors = 0;
    int64_t elements = 0;
  };
  const std::string& name = SampleFile();
  for (auto _ : state) {
    xerces::XMLGrammarPoolImpl pool;
    const std::unique_ptr<xerces::SAX2XMLReader> reader(
        xerces::XMLReaderFactory::createXMLReader(xerces::XMLPlatformUtils::fgMemoryManager, &pool));
    Handler handler;
    reader->setFeature(xerces::XMLUni::fgSAX2CoreValidation, true);
    reader->setFeature(xerces::XMLUni::fgXercesDynamic, false);
    reader->setFeature(xerces::XMLUni::fgXercesSchema, true);
    reader->setFeature(xerces::XMLUni::fgXercesUseCachedGrammarInParse, true);
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    reader->loadGrammar(ZEVO_SCHEMA_FILE, xerces::Grammar::SchemaGrammarType, true);
    reader->parse(name.c_str());
    Require(state, handler.errors == 0 && handler.elements > int64_t{10} * Invoices(), "not valid");
  }
  SetBytes(state, name);
}
BENCHMARK(ValidateWithXerces)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zevo::bench

int main(int argc, char** argv) {
  zevo::Options().set_SchemaLocation(ZEVO_SCHEMA_FILE);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
