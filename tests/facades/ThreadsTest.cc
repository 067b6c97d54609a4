// SPDX-License-Identifier: Apache-2.0
// Eight threads at once, each with objects and options of its own, beside a host that uses the same parser itself.

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <zevo/adapters.h>

#include <filesystem>
#include <functional>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;

constexpr int kThreads = 8;
constexpr int kRounds = 4;

// Runs the same code in all threads at once, with their numbers.
void InThreads(const std::function<void(int thread)>& code) {
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      start.arrive_and_wait();
      code(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// Everything that a host does with a file, in a folder of its own.
void UseTheLibrary(const TemporaryFolder& folder) {
  const std::string built = folder.Path("built.xml");
  const std::string streamed = folder.Path("streamed.xml");
  SaveSampleFile(built);
  AuditFile file;
  file.set_AuditFileName(built);
  EXPECT_TRUE(file.ValidateAuditFile()) << Told(file.AuditException());
  EXPECT_GT(ReadEveryRecord(built), 0);
  AuditFileStreamer streamer;
  int records = 0;
  streamer.ReadEntity = [&](const std::string&, const std::shared_ptr<Record>& record) {
    records += record != nullptr;
  };
  streamer.set_AuditFileName(built);
  EXPECT_TRUE(streamer.OpenAuditFile());
  streamer.ReadAuditFile();
  EXPECT_GT(records, 5);
  AuditFileStreamWriter writer;
  writer.set_AuditFileName(streamed);
  EXPECT_TRUE(writer.CreateAuditFile() && writer.CreateHeader(*SampleHeader()) &&
              writer.CreateCustomer(*SampleCustomer("C1")) && writer.CloseAuditFile());
  folder.Write("bad.xml", "<AuditFile><Header></AuditFile>");
  AuditFileReader reader;
  reader.set_AuditFileName(folder.Path("bad.xml"));
  EXPECT_FALSE(reader.OpenAuditFile());
  EXPECT_NE(reader.AuditException(), nullptr);
  EXPECT_TRUE(file.DeleteAuditFile());
  std::filesystem::remove(streamed);
}

TEST(ThreadsTest, EachHasItsOwnObjectsAndOptions) {
  const std::string location = Options().SchemaLocation();
  const bool validates = Options().ValidateOnAssignment();
  const std::string long_name(300, 'x');
  InThreads([&](int thread) {
    const TemporaryFolder folder;
    const std::string schema = folder.Write("own.xsd", ReadBytes(ZEVO_SCHEMA_FILE));
    EXPECT_EQ(Options().SchemaLocation(), location) << "a new thread starts from the defaults";
    EXPECT_EQ(Options().ValidateOnAssignment(), validates);
    const bool validate = thread % 2 == 0;
    Options().set_SchemaLocation(schema);
    Options().set_ValidateOnAssignment(validate);
    for (int round = 0; round < kRounds; ++round) {
      UseTheLibrary(folder);
      Customer customer;
      customer.set_CompanyName(long_name);
      EXPECT_EQ(customer.CompanyName() != long_name, validate);
      EXPECT_EQ(Options().SchemaLocation(), schema);
    }
  });
  EXPECT_EQ(Options().SchemaLocation(), location);
  EXPECT_EQ(Options().ValidateOnAssignment(), validates);
}

// A host's own handlers, for its own parsing.
class HostHandlers {
 public:
  HostHandlers() {
    xmlSetStructuredErrorFunc(this, [](void* self, xmlErrorPtr) { ++static_cast<HostHandlers*>(self)->errors_; });
  }
  HostHandlers(const HostHandlers&) = delete;
  HostHandlers& operator=(const HostHandlers&) = delete;
  ~HostHandlers() { xmlSetStructuredErrorFunc(nullptr, nullptr); }

  int Errors() const { return errors_; }
  bool AreInPlace() const { return xmlStructuredErrorContext == this && xmlStructuredError != nullptr; }

 private:
  int errors_ = 0;
};

// What a host expects of its parser: entities are replaced where it asks, and its handler hears of errors.
void UseTheParser(const HostHandlers& handlers) {
  const std::string good = "<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>";
  const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(
      xmlReadMemory(good.data(), static_cast<int>(good.size()), "a.xml", nullptr, XML_PARSE_NOENT), &xmlFreeDoc);
  ASSERT_NE(document, nullptr);
  const std::unique_ptr<xmlChar, void (*)(void*)> text(xmlNodeGetContent(xmlDocGetRootElement(document.get())),
                                                       xmlFree);
  EXPECT_STREQ(reinterpret_cast<const char*>(text.get()), "x");
  const int before = handlers.Errors();
  EXPECT_EQ(xmlReadMemory("<a>", 3, "a.xml", nullptr, 0), nullptr);
  EXPECT_GT(handlers.Errors(), before);
}

TEST(ThreadsTest, AHostThatUsesTheSameParserIsNotDisturbedNorDisturbs) {
  xmlInitParser();
  InThreads([](int thread) {
    const UseSchema schema;
    const TemporaryFolder folder;
    const HostHandlers handlers;
    if (thread % 2 == 0) UseTheParser(handlers);
    for (int round = 0; round < kRounds; ++round) {
      const int before = handlers.Errors();
      UseTheLibrary(folder);
      EXPECT_EQ(handlers.Errors(), before) << "the library's errors are no concern of the host's";
      EXPECT_TRUE(handlers.AreInPlace());
      UseTheParser(handlers);
      EXPECT_TRUE(handlers.AreInPlace());
    }
  });
}

}  // namespace
}  // namespace zevo
