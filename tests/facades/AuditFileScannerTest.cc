// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/facades/SampleFile.h"
#include "tests/support/ElementPaths.h"
#include "tests/support/Errors.h"
#include "tests/support/RecordValues.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {

void PrintTo(const Problem& problem, std::ostream* out) {
  *out << static_cast<int>(problem.fault) << " " << Describe(problem, Language::kEnglish);
}
void PrintTo(const FilePlace& place, std::ostream* out) {
  *out << place.line << ":" << place.column << ":" << place.offset;
}

namespace {

using testing::ReadBytes;
using testing::TemporaryFolder;

constexpr std::string_view kRootTag = "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">";

/// An entity as it was scanned.
struct Scanned {
  EntityKind kind{};
  std::string journal;
  std::shared_ptr<Record> record;
  std::map<std::string, std::string> texts;  // by paths
  std::map<std::string, FilePlace> places;
  std::vector<Problem> problems;
};

class AuditFileScannerTest : public ::testing::Test {
 protected:
  void Open(std::string_view content) {
    scanner_.set_AuditFileName(folder_.Write("file.xml", content));
    ASSERT_TRUE(scanner_.OpenAuditFile()) << scanner_.AuditException()->Description();
  }
  /// The content of an audit file's root.
  void OpenRoot(std::string_view content) { Open(std::string(kRootTag).append(content).append("</AuditFile>")); }

  std::shared_ptr<Record> Next() {
    std::shared_ptr<Record> record;
    EXPECT_TRUE(scanner_.ReadNext(record)) << scanner_.AuditException()->Description();
    return record;
  }
  template <class R>
  std::shared_ptr<R> NextOf() {
    return std::dynamic_pointer_cast<R>(Next());
  }

  /// All entities of a file that is read to its end.
  std::vector<Scanned> Scan(std::string_view bytes) {
    scanner_.CloseAuditFile();
    Open(bytes);
    std::vector<Scanned> all;
    while (const std::shared_ptr<Record> record = Next()) {
      Scanned& scanned = all.emplace_back();
      scanned.kind = *scanner_.Kind();
      scanned.journal = scanner_.JournalID();
      scanned.record = record;
      scanned.problems = scanner_.Problems();
      const std::vector<std::string> paths = testing::PathsOf(scanner_.Elements()).paths;
      for (size_t i = 0; i < paths.size(); ++i) {
        const ScannedElement& element = scanner_.Elements()[i];
        const std::string& name = paths[i];
        scanned.texts[name] = element.text;
        scanned.places[name] = element.place;
        EXPECT_EQ(scanner_.TextOf(name), element.text) << name;
        EXPECT_EQ(scanner_.PlaceOf(name), element.place) << name;
      }
    }
    return all;
  }

  TemporaryFolder folder_;
  AuditFileScanner scanner_;
};

/// The value that a record has for the element at a path, as the file would have it; nothing without such a property.
std::optional<std::string> ValueAt(std::shared_ptr<Record> record, std::string path) {
  for (;;) {
    const size_t slash = path.find('/');
    std::string step = path.substr(0, slash);
    int32_t position = 1;
    if (const size_t bracket = step.find('['); bracket != std::string::npos) {
      position = std::stoi(step.substr(bracket + 1));
      step.resize(bracket);
    }
    const std::span<const Property> properties = PropertiesOf(*record);
    const auto found = std::ranges::find_if(properties, [&](const Property& property) {
      const auto form = WrittenFormOf(*record, property.name);
      return form && form->element == step;
    });
    if (found == properties.end()) return std::nullopt;
    if (IsPlain(*found)) {
      return slash == std::string::npos ? std::optional(TextFromValue(*found, found->get(*record))) : std::nullopt;
    }
    if (slash == std::string::npos) return std::nullopt;
    if (found->type == PropertyType::kCollection) {
      if (position > found->count(*record)) return std::nullopt;
      record = found->item(*record, position);
    } else {
      record = std::get<std::shared_ptr<Record>>(found->get(*record));
    }
    if (record == nullptr) return std::nullopt;
    path.erase(0, slash + 1);
  }
}

TEST_F(AuditFileScannerTest, GivesEveryEntityInTheOrderOfTheFile) {
  std::string kinds;
  for (const Scanned& scanned : Scan(ReadBytes(ZEVO_COMPLETE_FILE))) {
    kinds.append(NameOf(scanned.kind)).append(scanned.journal.empty() ? " " : "(" + scanned.journal + ") ");
    EXPECT_EQ(scanned.record->Kind(), scanned.kind);
  }
  EXPECT_EQ(kinds,
            "Header Product GeneralLedger Customer Supplier TaxTable Customer Supplier Product Product GeneralLedger "
            "GeneralLedgerEntries Journal Transaction(VENDAS) Transaction(VENDAS) Journal Transaction(COMPRAS) "
            "SalesInvoices Invoice Invoice ");
}

// Each element of a file that has all of them is given each of some texts: the record holds that text, or a problem at
// that very element tells that it does not.
TEST_F(AuditFileScannerTest, ARecordHoldsTheTextOfEveryElementOrAProblemTells) {
  const testing::UseSchema schema;  // which would have texts cut
  const std::string bytes = ReadBytes(ZEVO_COMPLETE_FILE);
  const std::vector<Scanned> plain = Scan(bytes);
  const std::string long_text(300, 'x');
  int leaves = 0;
  for (size_t entity = 0; entity < plain.size(); ++entity) {
    for (const auto& entry : plain[entity].texts) {
      const std::string& path = entry.first;
      const std::string& text = entry.second;
      if (text.empty()) continue;
      ++leaves;
      const auto tag = static_cast<size_t>(plain[entity].places.at(path).offset);
      const size_t begin = bytes.find('>', tag) + 1;
      const size_t end = bytes.find('<', begin);
      for (const std::string& mutant : {std::string("12x"), std::string("7"), std::string("-0.00001"),
                                        std::string("ZZ"), std::string(" a  b "), long_text, std::string("1.04_01x")}) {
        const std::vector<Scanned> mutated = Scan(bytes.substr(0, begin) + mutant + bytes.substr(end));
        ASSERT_EQ(mutated.size(), plain.size());
        const Scanned& scanned = mutated[entity];
        ASSERT_EQ(scanned.texts.at(path), mutant) << path;
        const bool told = std::ranges::any_of(scanned.problems, [&](const Problem& problem) {
          const bool around = !problem.path.empty() && path.starts_with(problem.path + "/");
          const bool here =
              problem.path == path && problem.text == mutant && problem.place == plain[entity].places.at(path);
          return here || around;
        });
        const bool held = ValueAt(scanned.record, path) == mutant;
        ASSERT_NE(held, told) << NameOf(scanned.kind) << " " << path << " \"" << mutant << "\"";
      }
    }
  }
  EXPECT_GT(leaves, 150);
}

// What the other readers leave out is read too.
TEST_F(AuditFileScannerTest, NoTextOfACompleteFileIsLost) {
  for (const Scanned& scanned : Scan(ReadBytes(ZEVO_COMPLETE_FILE))) {
    for (const auto& entry : scanned.texts) {
      const std::string& path = entry.first;
      const std::string& text = entry.second;
      const bool told =
          std::ranges::any_of(scanned.problems, [&](const Problem& problem) { return path.starts_with(problem.path); });
      if (text.empty() || told) continue;
      const std::optional<std::string> value = ValueAt(scanned.record, path);
      ASSERT_TRUE(value) << path;
      const bool isNumber = text.find_first_not_of("0123456789.+-") == std::string::npos;
      if (isNumber && *value != text) {
        EXPECT_EQ(std::stod(*value), std::stod(text)) << path;
      } else {
        EXPECT_EQ(*value, text) << path;
      }
    }
  }
}

TEST_F(AuditFileScannerTest, EveryPlaceIsThatOfItsStartTag) {
  const std::string bytes = ReadBytes(ZEVO_COMPLETE_FILE);
  for (const Scanned& scanned : Scan(bytes)) {
    for (const auto& [path, place] : scanned.places) {
      const auto offset = static_cast<size_t>(place.offset);
      std::string name = path.empty() ? std::string(NameOf(scanned.kind)) : path.substr(path.rfind('/') + 1);
      name.resize(std::min(name.find('['), name.size()));
      ASSERT_EQ(bytes.substr(offset, 1 + name.size()), "<" + name) << path;
      EXPECT_EQ(place.line, 1 + std::ranges::count(bytes.substr(0, offset), '\n')) << path;
    }
  }
}

TEST_F(AuditFileScannerTest, TellsAllFaults) {
  OpenRoot(
      "<MasterFiles>\n<Customer><CustomerID>C</CustomerID><Fax>1</Fax><Telephone>2</Telephone><Fax>3</Fax>"
      "<Pet>cat</Pet><SelfBillingIndicator>maybe</SelfBillingIndicator></Customer></MasterFiles>");
  const auto customer = NextOf<Customer>();
  ASSERT_NE(customer, nullptr);
  EXPECT_EQ(customer->Fax(), "1");
  EXPECT_EQ(customer->Telephone(), "2");
  EXPECT_FALSE(customer->SelfBillingIndicator());
  const std::vector<Problem> expected{
      {Fault::kOutOfOrder, "Telephone", scanner_.PlaceOf("Telephone"), "2"},
      {Fault::kRepeated, "Fax[2]", scanner_.PlaceOf("Fax[2]"), "3"},
      {Fault::kUnknownElement, "Pet", scanner_.PlaceOf("Pet"), "cat"},
      {Fault::kUnreadable, "SelfBillingIndicator", scanner_.PlaceOf("SelfBillingIndicator"), "maybe"},
  };
  EXPECT_EQ(scanner_.Problems(), expected);
  EXPECT_EQ(scanner_.PlaceOf("Pet").line, 2);
}

TEST_F(AuditFileScannerTest, KeepsLinesWithOneKeyAndASecondReference) {
  OpenRoot(
      "<SourceDocuments><SalesInvoices><Invoice><InvoiceType>FS</InvoiceType>"
      "<Line><LineNumber>1</LineNumber><OrderReferences><OriginatingON>A</OriginatingON></OrderReferences>"
      "<OrderReferences><OriginatingON>B</OriginatingON></OrderReferences><Quantity>0.12345</Quantity>"
      "<Tax><TaxType>IS</TaxType></Tax></Line>"
      "<Line><LineNumber>1</LineNumber><Description>x</Description></Line></Invoice>"
      "</SalesInvoices></SourceDocuments>");
  EXPECT_EQ(Next()->Kind(), EntityKind::kSalesInvoices);
  const auto invoice = NextOf<Invoice>();
  ASSERT_EQ(invoice->Line()->Count(), 2);
  EXPECT_EQ(invoice->Line()->Item(2)->Description(), "x");
  EXPECT_EQ(invoice->Line()->Item("1"), invoice->Line()->Item(1));
  EXPECT_EQ(invoice->Line()->Item(1)->OrderReferences()->OriginatingOn(), "A");
  std::vector<std::pair<Fault, std::string>> problems;
  for (const Problem& problem : scanner_.Problems()) problems.emplace_back(problem.fault, problem.path);
  const std::vector<std::pair<Fault, std::string>> expected{
      {Fault::kUnknownCode, "InvoiceType"},     {Fault::kRepeated, "Line[1]/OrderReferences[2]"},
      {Fault::kInexact, "Line[1]/Quantity"},    {Fault::kConstant, "Line[1]/Tax/TaxType"},
      {Fault::kKeyTaken, "Line[2]/LineNumber"},
  };
  EXPECT_EQ(problems, expected);
  EXPECT_EQ(scanner_.TextOf("Line[1]/OrderReferences[2]/OriginatingON"), "B");
  EXPECT_EQ(scanner_.TextOf("InvoiceType"), "FS");
  EXPECT_EQ(scanner_.TextOf("Line[3]"), std::nullopt);
}

TEST_F(AuditFileScannerTest, WhatStandsBetweenEntitiesCountsToTheNextOne) {
  OpenRoot(
      "<Extra>text<Inner/></Extra><MasterFiles><Customer a=\"1\"><CustomerID>C</CustomerID> stray </Customer>"
      "</MasterFiles>loose<After/>");
  ASSERT_NE(NextOf<Customer>(), nullptr);
  ASSERT_EQ(scanner_.Problems().size(), 4u);
  EXPECT_EQ(scanner_.Problems()[0].path, "/AuditFile/Extra");
  EXPECT_EQ(scanner_.Problems()[0].text, "text");
  EXPECT_EQ(scanner_.Problems()[1].path, "/AuditFile/Extra/Inner");
  EXPECT_EQ(scanner_.Problems()[2].path, "@a");
  EXPECT_EQ(scanner_.Problems()[3].path, "text()");
  EXPECT_EQ(scanner_.Problems()[3].text, " stray ");
  EXPECT_EQ(Next(), nullptr);
  ASSERT_EQ(scanner_.Problems().size(), 2u);
  EXPECT_EQ(scanner_.Problems()[0].path, "/AuditFile/text()");
  EXPECT_EQ(scanner_.Problems()[0].text, "loose");
  EXPECT_EQ(scanner_.Problems()[1].path, "/AuditFile/After");
  EXPECT_EQ(scanner_.Kind(), std::nullopt);
}

TEST_F(AuditFileScannerTest, AnEntityInAnotherPlaceIsReadAndTold) {
  OpenRoot("<Invoice><InvoiceNo>A 1/1</InvoiceNo></Invoice>");
  const auto invoice = NextOf<Invoice>();
  ASSERT_NE(invoice, nullptr);
  EXPECT_EQ(invoice->InvoiceNo(), "A 1/1");
  ASSERT_EQ(scanner_.Problems().size(), 1u);
  EXPECT_EQ(scanner_.Problems()[0].fault, Fault::kOutOfOrder);
  EXPECT_EQ(scanner_.Problems()[0].path, "");
}

TEST_F(AuditFileScannerTest, ReadsPrefixesEntitiesAndSections) {
  Open(
      "<s:AuditFile xmlns:s='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><s:MasterFiles><s:Customer>"
      "<s:CompanyName>A &amp; <!-- c "
      "--><![CDATA[<B>]]>\r\n</s:CompanyName></s:Customer></s:MasterFiles></s:AuditFile>");
  EXPECT_EQ(NextOf<Customer>()->CompanyName(), "A & <B>\n");
  EXPECT_TRUE(scanner_.Problems().empty());
}

// ---- What is no file to scan ----

TEST_F(AuditFileScannerTest, AnotherRootIsNoAuditFile) {
  for (const char* content : {"<a/>", "<auditfile/>", "<AuditFile xmlns='urn:x'/>",
                              "<x:AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' xmlns:x='urn:x'/>"}) {
    scanner_.set_AuditFileName(folder_.Write("file.xml", content));
    EXPECT_FALSE(scanner_.OpenAuditFile()) << content;
    EXPECT_EXCEPTION(scanner_, testing::NumberOf(Message::kNoAuditFile), "AuditFileScanner.OpenAuditFile",
                     "O ficheiro não é um ficheiro de auditoria");
    EXPECT_FALSE(scanner_.Kind());
  }
}

TEST_F(AuditFileScannerTest, AnotherVersionIsToldByTheNamespaceOrTheHeader) {
  for (const char* content :
       {"<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.04_01'><Header/></AuditFile>",
        "<AuditFile><Header><AuditFileVersion> 1.04_01 </AuditFileVersion></Header></AuditFile>"}) {
    scanner_.set_AuditFileName(folder_.Write("file.xml", content));
    EXPECT_FALSE(scanner_.OpenAuditFile()) << content;
    EXPECT_EXCEPTION(scanner_, testing::NumberOf(Message::kOtherVersion), "AuditFileScanner.OpenAuditFile",
                     "O ficheiro é da versão 1.04_01; só a versão 1.01_01 é lida");
  }
}

TEST_F(AuditFileScannerTest, AFileWithoutNamespaceAndVersionIsReadWithAProblem) {
  Open("<AuditFile><Header><CompanyID>1</CompanyID></Header></AuditFile>");
  EXPECT_EQ(NextOf<Header>()->CompanyID(), "1");
  ASSERT_EQ(scanner_.Problems().size(), 1u);
  EXPECT_EQ(scanner_.Problems()[0], (Problem{Fault::kConstant, "/AuditFile", {1, 1, 0}, ""}));
  scanner_.CloseAuditFile();
  Open("<AuditFile><Header><AuditFileVersion>1.01_01</AuditFileVersion></Header></AuditFile>");
  EXPECT_NE(NextOf<Header>(), nullptr);
  EXPECT_TRUE(scanner_.Problems().empty());
}

TEST_F(AuditFileScannerTest, OperationsInTheWrongOrderFail) {
  std::shared_ptr<Record> record = std::make_shared<Customer>();
  EXPECT_FALSE(scanner_.ReadNext(record));
  EXPECT_EQ(record, nullptr);
  EXPECT_EXCEPTION(scanner_, testing::NumberOf(Message::kNotStarted), "AuditFileScanner.ReadNext",
                   MessageText(testing::NumberOf(Message::kNotStarted)));
  EXPECT_FALSE(scanner_.OpenAuditFile());
  EXPECT_EQ(scanner_.AuditException()->Number(), testing::NumberOf(Message::kNoFileName));
  scanner_.set_AuditFileName(folder_.Path("none.xml"));
  EXPECT_FALSE(scanner_.OpenAuditFile());
  EXPECT_EQ(scanner_.AuditException()->Number(), testing::NumberOf(Message::kFileNotFound));
  OpenRoot("<Header/>");
  EXPECT_FALSE(scanner_.OpenAuditFile());
  EXPECT_EQ(scanner_.AuditException()->Number(), testing::NumberOf(Message::kAlreadyStarted));
  EXPECT_TRUE(scanner_.CloseAuditFile());
  EXPECT_EQ(scanner_.AuditException(), nullptr);
  EXPECT_FALSE(scanner_.Kind());
  EXPECT_TRUE(scanner_.Elements().empty());
}

TEST_F(AuditFileScannerTest, AFileCutShortGivesWhatIsWholeAndFailsUntilItIsClosed) {
  Open(std::string(kRootTag) + "<MasterFiles><Customer><CustomerID>C</CustomerID></Customer><Customer><Cust");
  EXPECT_EQ(NextOf<Customer>()->CustomerID(), "C");
  AuditFileReader reader;
  reader.set_AuditFileName(scanner_.AuditFileName());
  ASSERT_FALSE(reader.OpenAuditFile());
  for (int time = 0; time < 2; ++time) {
    std::shared_ptr<Record> record;
    EXPECT_FALSE(scanner_.ReadNext(record));
    EXPECT_EXCEPTION(scanner_, reader.AuditException()->Number(), "AuditFileScanner.ReadNext",
                     reader.AuditException()->Description());
  }
}

TEST_F(AuditFileScannerTest, AbortingMakesTheNextReadingFail) {
  OpenRoot("<Header/><MasterFiles><Customer/></MasterFiles>");
  Next();
  scanner_.AbortReading();
  std::shared_ptr<Record> record;
  EXPECT_FALSE(scanner_.ReadNext(record));
  EXPECT_EQ(scanner_.AuditException()->Number(), testing::NumberOf(Message::kReadingAborted));
  EXPECT_FALSE(scanner_.ReadNext(record));
  EXPECT_TRUE(scanner_.CloseAuditFile());
  OpenRoot("<Header/>");
  EXPECT_NE(Next(), nullptr);
}

TEST_F(AuditFileScannerTest, ALoopOverTheEntitiesEndsAtTheEndAndThrowsAtAFailure) {
  const std::string file = folder_.Path("sample.xml");
  testing::SaveSampleFile(file);
  scanner_.set_AuditFileName(file);
  ASSERT_TRUE(scanner_.OpenAuditFile());
  int records = 0;
  for (const auto& record : scanner_.Entities()) records += record != nullptr ? 1 : 0;
  EXPECT_GT(records, 5);
  scanner_.CloseAuditFile();

  Open(ReadBytes(file).substr(0, 2'000));
  const auto goThrough = [&] {
    for (const auto& record : scanner_.Entities()) static_cast<void>(record);
  };
  EXPECT_THROW(goThrough(), Error);
}

TEST_F(AuditFileScannerTest, WhateverTheOptionsTextsAreWholeAndTheOptionsStay) {
  const testing::UseSchema schema;
  const std::string name(500, 'n');
  OpenRoot("<MasterFiles><Customer><CompanyName>" + name + "</CompanyName></Customer></MasterFiles>");
  EXPECT_EQ(NextOf<Customer>()->CompanyName(), name);
  EXPECT_TRUE(Options().ValidateOnAssignment());
}

}  // namespace
}  // namespace zevo
