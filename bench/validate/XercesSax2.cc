// SPDX-License-Identifier: Apache-2.0
#include <memory>
#include <string>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

using xercesc::XMLUni;

struct ErrorCounter : xercesc::DefaultHandler {
  void error(const xercesc::SAXParseException&) override { ++errors; }
  void fatalError(const xercesc::SAXParseException&) override { ++errors; }
  int errors = 0;
};

/// Parses with validation, the loading of the schema included.
class XercesJob : public ValidatingJob {
 public:
  explicit XercesJob(const Setting& setting) : ValidatingJob(setting) { xercesc::XMLPlatformUtils::Initialize(); }

 private:
  bool IsValid(const std::string& name) override {
    xercesc::XMLGrammarPoolImpl pool;
    const std::unique_ptr<xercesc::SAX2XMLReader> reader(
        xercesc::XMLReaderFactory::createXMLReader(xercesc::XMLPlatformUtils::fgMemoryManager, &pool));
    ErrorCounter handler;
    reader->setFeature(XMLUni::fgSAX2CoreValidation, true);
    reader->setFeature(XMLUni::fgXercesDynamic, false);
    reader->setFeature(XMLUni::fgXercesSchema, true);
    reader->setFeature(XMLUni::fgXercesUseCachedGrammarInParse, true);
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    reader->loadGrammar(ZEVO_SCHEMA_FILE, xercesc::Grammar::SchemaGrammarType, true);
    reader->parse(name.c_str());
    return handler.errors == 0;
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<XercesJob>(setting); }

}  // namespace zevo::bench
