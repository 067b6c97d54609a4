// The façades that go through a file once, against what a program would use instead. Each job checks what it did.

#include <benchmark/benchmark.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlwriter.h>
#include <zevo/adapters.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "bench/BenchFiles.h"
#include "tools/generate/SampleRecords.h"

namespace zevo::bench {
namespace {

void StreamRecords(benchmark::State& state) {
  const std::string& name = SampleFile();
  for (auto _ : state) {
    AuditFileStreamer file;
    file.set_AuditFileName(name);
    int64_t invoices = 0;
    int64_t transactions = 0;
    file.ReadEntity = [&](const std::string&, const std::shared_ptr<Record>& record) {
      if (dynamic_cast<const Invoice*>(record.get()) != nullptr) ++invoices;
      if (dynamic_cast<const Transaction*>(record.get()) != nullptr) ++transactions;
    };
    file.OpenAuditFile();
    // The tax table cannot be read.
    file.ReadAuditFile();
    Require(state, !file.AuditException() && invoices == Invoices() && transactions == Invoices(),
            "records are missing");
  }
  SetBytes(state, name);
}
BENCHMARK(StreamRecords)->Unit(benchmark::kMillisecond);

void ParseWithLibxmlSax(benchmark::State& state) {
  const std::string& name = SampleFile();
  for (auto _ : state) {
    int64_t elements = 0;
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void* count, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int,
                                int, const xmlChar**) { ++*static_cast<int64_t*>(count); };
    handler.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handler.characters = [](void*, const xmlChar*, int) {};
    const int result = xmlSAXUserParseFile(&handler, &elements, name.c_str());
    Require(state, result == 0 && elements > int64_t{70} * Invoices(), "elements are missing");
  }
  SetBytes(state, name);
}
BENCHMARK(ParseWithLibxmlSax)->Unit(benchmark::kMillisecond);

// As many records as a writer is given again and again, so that making them is not what is measured.
constexpr int kPool = 1000;

void StreamWriter(benchmark::State& state) {
  const generate::SampleRecords sample(kPool, 1);
  std::vector<std::unique_ptr<Transaction>> transactions;
  std::vector<std::unique_ptr<Invoice>> invoices;
  for (int i = 0; i < kPool; ++i) {
    transactions.push_back(sample.TransactionAt(i));
    invoices.push_back(sample.InvoiceAt(i));
  }
  const std::string name = FileName("zevo-bench-written.xml");
  for (auto _ : state) {
    std::filesystem::remove(name);
    AuditFileStreamWriter file;
    file.set_AuditFileName(name);
    bool good = file.CreateAuditFile() && file.BeginGeneralLedgerEntries(*sample.EntriesTotals()) &&
                file.BeginJournal(*sample.JournalOf(0));
    for (int i = 0; i < Invoices(); ++i) good = file.CreateTransaction(*transactions[i % kPool]) && good;
    good = file.BeginSalesInvoices(*sample.InvoicesTotals()) && good;
    for (int i = 0; i < Invoices(); ++i) good = file.CreateInvoice(*invoices[i % kPool]) && good;
    Require(state, good && file.CloseAuditFile(), "not written");
  }
  Require(state, std::filesystem::file_size(name) > uint64_t{2900} * static_cast<uint64_t>(Invoices()), "too short");
  SetBytes(state, name);
  std::filesystem::remove(name);
}
BENCHMARK(StreamWriter)->Unit(benchmark::kMillisecond);

// An element of a pool of records as the writer is told of it.
void WriteElement(xmlTextWriter* writer, const xmlNode* element) {
  xmlTextWriterStartElement(writer, element->name);
  for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
    if (child->type == XML_TEXT_NODE) {
      xmlTextWriterWriteString(writer, child->content);
    } else {
      WriteElement(writer, child);
    }
  }
  xmlTextWriterEndElement(writer);
}

std::vector<const xmlNode*> ChildrenOf(const xmlNode* parent, const char* name) {
  std::vector<const xmlNode*> children;
  for (const xmlNode* child = parent->children; child != nullptr; child = child->next) {
    if (xmlStrEqual(child->name, BAD_CAST name)) children.push_back(child);
    for (const xmlNode* inner : ChildrenOf(child, name)) children.push_back(inner);
  }
  return children;
}

void XmlTextWriter(benchmark::State& state) {
  const std::string pool = FileName("zevo-bench-pool.xml");
  {
    std::filesystem::remove(pool);
    AuditFileStreamWriter file;
    file.set_AuditFileName(pool);
    generate::WriteTo(file, generate::SampleRecords(kPool, 1));
  }
  xmlDoc* document = xmlReadFile(pool.c_str(), nullptr, 0);
  const auto transactions = ChildrenOf(xmlDocGetRootElement(document), "Transaction");
  const auto invoices = ChildrenOf(xmlDocGetRootElement(document), "Invoice");
  const std::string name = FileName("zevo-bench-written.xml");
  for (auto _ : state) {
    xmlTextWriter* writer = xmlNewTextWriterFilename(name.c_str(), 0);
    xmlTextWriterStartDocument(writer, nullptr, "windows-1252", nullptr);
    for (const char* element : {"AuditFile", "GeneralLedgerEntries", "Journal"}) {
      xmlTextWriterStartElement(writer, BAD_CAST element);
    }
    for (int i = 0; i < Invoices(); ++i) WriteElement(writer, transactions[i % kPool]);
    xmlTextWriterEndElement(writer);
    xmlTextWriterEndElement(writer);
    for (const char* element : {"SourceDocuments", "SalesInvoices"})
      xmlTextWriterStartElement(writer, BAD_CAST element);
    for (int i = 0; i < Invoices(); ++i) WriteElement(writer, invoices[i % kPool]);
    Require(state, xmlTextWriterEndDocument(writer) >= 0, "not written");
    xmlFreeTextWriter(writer);
  }
  xmlFreeDoc(document);
  Require(state, std::filesystem::file_size(name) > uint64_t{2900} * static_cast<uint64_t>(Invoices()), "too short");
  SetBytes(state, name);
  std::filesystem::remove(name);
  std::filesystem::remove(pool);
}
BENCHMARK(XmlTextWriter)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zevo::bench

int main(int argc, char** argv) {
  zevo::Options().set_SchemaLocation(ZEVO_SCHEMA_FILE);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
