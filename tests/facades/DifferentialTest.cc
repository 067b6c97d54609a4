// SPDX-License-Identifier: Apache-2.0
// Random records through both writers and both readers: whichever way they go, the same comes back.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <zevo/adapters.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "tests/facades/Choices.h"
#include "tests/facades/Contents.h"
#include "tests/facades/FileRecords.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;

class RandomChoices : public Choices {
 public:
  size_t Below(size_t count) override { return *rc::gen::inRange<size_t>(0, count); }
};

template <class File>
std::string Written(const TemporaryFolder& folder, const char* name, const Contents& contents) {
  File file;
  file.set_AuditFileName(folder.Path(name));
  RC_ASSERT(Write(file, contents));
  return folder.Path(name);
}

// The records of a file that can be read to its end.
FileRecords Whole(FileRecords found) {
  RC_ASSERT(found.failure == nullptr);
  return found;
}

// The file with `<X></X>` for every `<X/>`, over which AuditFileReader passes.
std::string WithoutEmptyTags(std::string file) {
  for (size_t end = 0; (end = file.find("/>", end)) != std::string::npos;) {
    const size_t name = file.rfind('<', end) + 1;
    file.replace(end, 2, "></" + file.substr(name, end - name) + ">");
  }
  return file;
}

RC_GTEST_PROP(DifferentialTest, BothWritersAndBothReadersAgree, ()) {
  const UseSchema schema;
  const TemporaryFolder folder;
  RandomChoices choices;
  const Contents contents(choices);
  const std::string built = Written<AuditFile>(folder, "built.xml", contents);
  const std::string streamed = Written<AuditFileStreamWriter>(folder, "streamed.xml", contents);
  const FileRecords expected = Whole(ReadStreamed(built));
  RC_ASSERT(Difference(Whole(ReadStreamed(streamed)), expected) == "");
  RC_ASSERT(Difference(Whole(ReadOneByOne(streamed)), expected) == "");
  RC_ASSERT(Difference(Whole(ReadOneByOne(folder.Write("pairs.xml", WithoutEmptyTags(ReadBytes(built))))), expected) ==
            "");
}

TEST(DifferentialTest, ALineBreakOfAnyKindReadsBackAsOneSpaceWhoeverWroteAndWhoeverReads) {
  const TemporaryFolder folder;
  const auto expectName = [](const std::string& file, std::string_view name) {
    for (const FileRecords& found : {ReadOneByOne(file), ReadStreamed(file)}) {
      ASSERT_EQ(found.failure, nullptr);
      ASSERT_EQ(found.records.size(), 1U);
      EXPECT_EQ(found.records.front().second.at("Product.ProductDescription"), name);
    }
  };
  const auto written = [&](auto& file, const Product& product) {
    const std::string path = folder.Path("written.xml");
    std::filesystem::remove(path);
    file.set_AuditFileName(path);
    EXPECT_TRUE(file.CreateAuditFile() && file.CreateProduct(product));
    return path;
  };
  for (const std::string_view lineBreak : {"\r\n", "\r", "\n"}) {
    Product product;
    product.set_ProductDescription(std::string(lineBreak).append("Caixa").append(lineBreak).append("de 6"));
    AuditFile built;
    const std::string path = written(built, product);
    EXPECT_TRUE(built.UpdateAuditFile());
    expectName(path, "Caixa de 6");
    AuditFileStreamWriter streamed;
    written(streamed, product);
    EXPECT_TRUE(streamed.CloseAuditFile());
    expectName(path, "Caixa de 6");
  }
  // As others write it.
  for (const std::string_view lineBreak :
       {"&#13;&#10;", "&#xD;", "&#xA;", "&#13;\n", "&#13;\r\n", "\r\n", "\r", "\n"}) {
    expectName(
        folder.Write("foreign.xml", std::string("<AuditFile><MasterFiles><Product><ProductDescription>Caixa")
                                        .append(lineBreak)
                                        .append("de 6</ProductDescription></Product></MasterFiles></AuditFile>")),
        "Caixa de 6");
  }
}

// The description of a file's only transaction, as each reader finds it.
std::string ReadDescription(const std::string& file) {
  AuditFileReader reader;
  reader.set_AuditFileName(file);
  std::shared_ptr<Journal> journal;
  std::shared_ptr<Transaction> transaction;
  EXPECT_TRUE(reader.OpenAuditFile() && reader.ReadJournal(journal) && reader.ReadTransaction(transaction, *journal));
  return transaction ? transaction->Description() : "";
}

std::string StreamedDescription(const std::string& file) {
  std::string description;
  AuditFileStreamer streamer;
  streamer.ReadEntity = [&](const std::string&, const std::shared_ptr<Record>& record) {
    if (const auto read = std::dynamic_pointer_cast<Transaction>(record)) description = read->Description();
  };
  streamer.set_AuditFileName(file);
  EXPECT_TRUE(streamer.OpenAuditFile() && streamer.ReadAuditFile());
  return description;
}

// `AuditFile` writes an element without a text as one tag. AuditFileReader passes that over, and the text that it finds
// is that of the next element of the name. The streamer, to which an element is always two tags, does not, and neither
// does any reader where there are two tags, as the sequential writer has them.
TEST(DifferentialTest, AnElementOfOneTagIsPassedOverByTheReaderAlone) {
  Journal journal;
  journal.set_JournalID("J");
  for (const std::string_view description : {"", "  "}) {
    const TemporaryFolder folder;
    Transaction transaction;
    transaction.set_Description(description);
    auto line = std::make_shared<TransactionLine>();
    line->set_Description("L");
    transaction.Line()->Add(line);

    AuditFile built;
    built.set_AuditFileName(folder.Path("built.xml"));
    ASSERT_TRUE(built.CreateAuditFile() && built.CreateGeneralLedgerEntries(GeneralLedgerEntries()) &&
                built.CreateJournal(journal) && built.CreateTransaction(transaction, &journal) &&
                built.UpdateAuditFile());
    EXPECT_EQ(ReadDescription(folder.Path("built.xml")), "L");
    EXPECT_EQ(StreamedDescription(folder.Path("built.xml")), "");

    AuditFileStreamWriter streamed;
    streamed.set_AuditFileName(folder.Path("streamed.xml"));
    ASSERT_TRUE(streamed.CreateAuditFile() && streamed.BeginGeneralLedgerEntries(GeneralLedgerEntries()) &&
                streamed.BeginJournal(journal) && streamed.CreateTransaction(transaction) && streamed.CloseAuditFile());
    EXPECT_EQ(ReadDescription(folder.Path("streamed.xml")), "");
    EXPECT_EQ(StreamedDescription(folder.Path("streamed.xml")), "");
  }
}

// Only a reader that holds the journal with its transactions finds the text of an inner element of that name.
TEST(DifferentialTest, AJournalWithoutADescriptionHasThatOfATransactionWhereItHoldsOne) {
  const TemporaryFolder folder;
  Journal journal;
  journal.set_JournalID("J");
  Transaction transaction;
  transaction.set_Description("T");
  AuditFile file;
  file.set_AuditFileName(folder.Path("audit.xml"));
  ASSERT_TRUE(file.CreateAuditFile() && file.CreateGeneralLedgerEntries(GeneralLedgerEntries()) &&
              file.CreateJournal(journal) && file.CreateTransaction(transaction, &journal) && file.UpdateAuditFile());

  AuditFileReader reader;
  reader.set_AuditFileName(folder.Path("audit.xml"));
  std::shared_ptr<Journal> read;
  ASSERT_TRUE(reader.OpenAuditFile() && reader.ReadJournal(read));
  EXPECT_EQ(read->Description(), "T");

  std::shared_ptr<Journal> streamed;
  AuditFileStreamer streamer;
  streamer.ReadEntity = [&](const std::string& name, const std::shared_ptr<Record>& record) {
    if (name == "Journal") streamed = std::dynamic_pointer_cast<Journal>(record);
  };
  streamer.set_AuditFileName(folder.Path("audit.xml"));
  ASSERT_TRUE(streamer.OpenAuditFile() && streamer.ReadAuditFile());
  EXPECT_EQ(streamed->Description(), "");
}

}  // namespace
}  // namespace zevo
