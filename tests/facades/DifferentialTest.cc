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
  RC_ASSERT(Difference(Whole(ReadOneByOne(built)), expected) == "");
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
    std::string path = folder.Path("written.xml");
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

// The file as another program may write it.
std::string WithDescriptionsOfOneTag(std::string file) {
  constexpr std::string_view kTwoTags = "<Description></Description>";
  for (size_t at = 0; (at = file.find(kTwoTags, at)) != std::string::npos;) {
    file.replace(at, kTwoTags.size(), "<Description/>");
  }
  return file;
}

// Both writers write two tags for it. Of one tag, which other programs write, AuditFileReader passes over the element
// and finds the text of the next one of the name; the streamer, to which an element is always two tags, does not.
TEST(DifferentialTest, AnEmptyTextReadsBackAsOneWhereItIsTwoTags) {
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
    EXPECT_EQ(ReadDescription(folder.Path("built.xml")), "");
    EXPECT_EQ(StreamedDescription(folder.Path("built.xml")), "");

    AuditFileStreamWriter streamed;
    streamed.set_AuditFileName(folder.Path("streamed.xml"));
    ASSERT_TRUE(streamed.CreateAuditFile() && streamed.BeginGeneralLedgerEntries(GeneralLedgerEntries()) &&
                streamed.BeginJournal(journal) && streamed.CreateTransaction(transaction) && streamed.CloseAuditFile());
    EXPECT_EQ(ReadDescription(folder.Path("streamed.xml")), "");
    EXPECT_EQ(StreamedDescription(folder.Path("streamed.xml")), "");

    const std::string foreign =
        folder.Write("foreign.xml", WithDescriptionsOfOneTag(ReadBytes(folder.Path("built.xml"))));
    EXPECT_EQ(ReadDescription(foreign), "L");
    EXPECT_EQ(StreamedDescription(foreign), "");
  }
}

// Only a reader that holds the journal with its transactions finds the text of an inner element of that name.
TEST(DifferentialTest, AJournalWhoseDescriptionIsOneTagHasThatOfATransactionWhereItHoldsOne) {
  const TemporaryFolder folder;
  Journal journal;
  journal.set_JournalID("J");
  Transaction transaction;
  transaction.set_Description("T");
  AuditFile file;
  file.set_AuditFileName(folder.Path("built.xml"));
  ASSERT_TRUE(file.CreateAuditFile() && file.CreateGeneralLedgerEntries(GeneralLedgerEntries()) &&
              file.CreateJournal(journal) && file.CreateTransaction(transaction, &journal) && file.UpdateAuditFile());
  folder.Write("foreign.xml", WithDescriptionsOfOneTag(ReadBytes(folder.Path("built.xml"))));

  const auto description = [&](const char* name) {
    AuditFileReader reader;
    reader.set_AuditFileName(folder.Path(name));
    std::shared_ptr<Journal> read;
    EXPECT_TRUE(reader.OpenAuditFile() && reader.ReadJournal(read));
    return read->Description();
  };
  const auto streamedDescription = [&](const char* name) {
    std::shared_ptr<Journal> read;
    AuditFileStreamer streamer;
    streamer.ReadEntity = [&](const std::string& kind, const std::shared_ptr<Record>& record) {
      if (kind == "Journal") read = std::dynamic_pointer_cast<Journal>(record);
    };
    streamer.set_AuditFileName(folder.Path(name));
    EXPECT_TRUE(streamer.OpenAuditFile() && streamer.ReadAuditFile());
    return read->Description();
  };
  EXPECT_EQ(description("built.xml"), "");
  EXPECT_EQ(streamedDescription("built.xml"), "");
  EXPECT_EQ(description("foreign.xml"), "T");
  EXPECT_EQ(streamedDescription("foreign.xml"), "");
}

}  // namespace
}  // namespace zevo
