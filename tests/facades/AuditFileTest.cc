// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::TestWithParam;
using ::testing::Values;
using ::testing::ValuesIn;

constexpr Amount kLargest = Amount::FromScaled(std::numeric_limits<int64_t>::max());

constexpr std::string_view kEmptyFile =
    "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n"
    "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"/>\n";

struct Operation {
  const char* name;
  std::function<bool(AuditFile&)> call;

  std::string Source() const { return std::string("AuditFile.") + name; }
};

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

// All that can fail, in an order in which each of them works.
const std::vector<Operation>& FileOperations() {
  static const std::vector<Operation> kOperations = {
      {"CreateAuditFile", [](AuditFile& file) { return file.CreateAuditFile(); }},
      {"OpenAuditFile", [](AuditFile& file) { return file.OpenAuditFile(); }},
      {"UpdateAuditFile", [](AuditFile& file) { return file.UpdateAuditFile(); }},
      {"CloseAuditFile", [](AuditFile& file) { return file.CloseAuditFile(); }},
      {"DeleteAuditFile", [](AuditFile& file) { return file.DeleteAuditFile(); }},
      {"ValidateAuditFile", [](AuditFile& file) { return file.ValidateAuditFile(); }},
  };
  return kOperations;
}

const std::vector<Operation>& RecordOperations() {
  static const std::vector<Operation> kOperations = {
      {"CreateHeader", [](AuditFile& file) { return file.CreateHeader(*SampleHeader()); }},
      {"CreateGeneralLedger", [](AuditFile& file) { return file.CreateGeneralLedger(GeneralLedger()); }},
      {"CreateCustomer", [](AuditFile& file) { return file.CreateCustomer(*SampleCustomer("C1")); }},
      {"CreateSupplier", [](AuditFile& file) { return file.CreateSupplier(Supplier()); }},
      {"CreateTaxTable", [](AuditFile& file) { return file.CreateTaxTable(TaxTable()); }},
      {"CreateTaxTableEntry", [](AuditFile& file) { return file.CreateTaxTableEntry(TaxTableEntry()); }},
      {"CreateProduct", [](AuditFile& file) { return file.CreateProduct(*SampleProduct("P1")); }},
      {"CreateGeneralLedgerEntries",
       [](AuditFile& file) { return file.CreateGeneralLedgerEntries(GeneralLedgerEntries()); }},
      {"UpdateGeneralLedgerEntries",
       [](AuditFile& file) { return file.UpdateGeneralLedgerEntries(GeneralLedgerEntries()); }},
      {"CreateJournal", [](AuditFile& file) { return file.CreateJournal(*SampleJournal("D1")); }},
      {"CreateTransaction",
       [](AuditFile& file) { return file.CreateTransaction(*SampleTransaction(1), SampleJournal("D1").get()); }},
      {"CreateSalesInvoices", [](AuditFile& file) { return file.CreateSalesInvoices(SalesInvoices()); }},
      {"UpdateSalesInvoices", [](AuditFile& file) { return file.UpdateSalesInvoices(SalesInvoices()); }},
      {"CreateInvoice", [](AuditFile& file) { return file.CreateInvoice(*SampleInvoice(1, "C1", "P1")); }},
  };
  return kOperations;
}

const Operation& OperationNamed(std::string_view name) {
  for (const auto* table : {&FileOperations(), &RecordOperations()}) {
    for (const Operation& operation : *table) {
      if (operation.name == name) return operation;
    }
  }
  throw std::logic_error("no such operation");
}

class AuditFileTest : public ::testing::Test {
 protected:
  AuditFileTest() { file_.set_AuditFileName(path_); }

  void Create() { ASSERT_TRUE(file_.CreateAuditFile()); }
  void Save() { ASSERT_TRUE(file_.UpdateAuditFile()) << Told(file_.AuditException()); }
  std::string Saved() {
    Save();
    return ReadBytes(path_);
  }

  UseSchema schema_;
  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  AuditFile file_;
};

TEST_F(AuditFileTest, HasNoNameNoExceptionAndTheOptionsSchemaAtFirst) {
  const AuditFile file;
  EXPECT_EQ(file.AuditFileName(), "");
  EXPECT_EQ(file.AuditException(), nullptr);
  EXPECT_EQ(file.AuditFileSchema(), ZEVO_SCHEMA_FILE);
}

TEST_F(AuditFileTest, FileNameIsStoredAsGivenAlsoWhileADocumentIsOpen) {
  Create();
  file_.set_AuditFileName("  any/thing? ");
  EXPECT_EQ(file_.AuditFileName(), "  any/thing? ");
}

TEST_F(AuditFileTest, SchemaIsThatOfTheOptions) {
  AuditFile other;
  file_.set_AuditFileSchema(folder_.Path("other.xsd"));
  EXPECT_EQ(Options().SchemaLocation(), folder_.Path("other.xsd"));
  EXPECT_EQ(other.AuditFileSchema(), folder_.Path("other.xsd"));
}

TEST_F(AuditFileTest, SchemaPathThatDiffersInLetterCaseIsNotStored) {
  file_.set_AuditFileSchema(folder_.Path("Other.xsd"));
  file_.set_AuditFileSchema(folder_.Path("OTHER.XSD"));
  EXPECT_EQ(file_.AuditFileSchema(), folder_.Path("Other.xsd"));
}

TEST(AuditFileDefaultsTest, SchemaIsTheOneBesideTheLibrary) {
  const std::string schema = AuditFile().AuditFileSchema();
  EXPECT_THAT(schema, EndsWith(kDefaultSchema));
  EXPECT_EQ(ReadBytes(schema), ReadBytes(ZEVO_SCHEMA_FILE));
  EXPECT_TRUE(Options().ValidateOnAssignment());
}

TEST(AuditFileDefaultsTest, TextsAreCutFromTheFirstRecordOn) {
  Header header;
  header.set_CompanyName(std::string(500, 'x'));
  EXPECT_EQ(header.CompanyName(), std::string(60, 'x'));
}

TEST_F(AuditFileTest, NewDocumentSavedAtOnceHoldsTheDeclarationAndTheRoot) {
  Create();
  EXPECT_EQ(Saved(), kEmptyFile);
}

TEST_F(AuditFileTest, CreateWritesNothingToDisk) {
  Create();
  EXPECT_THAT(folder_.Names(), IsEmpty());
}

TEST_F(AuditFileTest, CreateForAnExistingPathLeavesTheFileUntouched) {
  folder_.Write("saft.xml", "whatever it is");
  EXPECT_FALSE(file_.CreateAuditFile());
  EXPECT_THAT(file_, Recorded(kFileExists, "AuditFile.CreateAuditFile"));
  EXPECT_EQ(ReadBytes(path_), "whatever it is");
}

TEST_F(AuditFileTest, CreateWithAnEmptyNameWhileADocumentIsOpenReportsTheDocument) {
  Create();
  file_.set_AuditFileName("");
  EXPECT_FALSE(file_.CreateAuditFile());
  EXPECT_THAT(file_, Recorded(kAlreadyStarted, "AuditFile.CreateAuditFile"));
}

TEST_F(AuditFileTest, FailedCreateOrOpenLeavesItClosed) {
  for (const char* name : {"CreateAuditFile", "OpenAuditFile"}) {
    file_.set_AuditFileName("");
    EXPECT_FALSE(OperationNamed(name).call(file_));
    EXPECT_FALSE(file_.CreateCustomer(Customer()));
    EXPECT_THAT(file_, Recorded(kNotStarted, "AuditFile.CreateCustomer")) << name;
  }
}

TEST_F(AuditFileTest, DeleteOfAMissingFileSucceeds) {
  EXPECT_TRUE(file_.DeleteAuditFile());
  EXPECT_THAT(file_, RecordedNothing());
}

TEST_F(AuditFileTest, DeleteRemovesTheFile) {
  folder_.Write("saft.xml", "whatever it is");
  EXPECT_TRUE(file_.DeleteAuditFile());
  EXPECT_THAT(folder_.Names(), IsEmpty());
}

TEST_F(AuditFileTest, CloseOfAClosedFileSucceedsAndClearsTheException) {
  EXPECT_FALSE(file_.UpdateAuditFile());
  EXPECT_TRUE(file_.CloseAuditFile());
  EXPECT_THAT(file_, RecordedNothing());
}

TEST_F(AuditFileTest, CloseDropsWhatWasNotSaved) {
  Create();
  Save();
  ASSERT_TRUE(file_.CreateHeader(*SampleHeader()));
  EXPECT_TRUE(file_.CloseAuditFile());
  EXPECT_EQ(ReadBytes(path_), kEmptyFile);
}

TEST_F(AuditFileTest, DestructionDropsWhatWasNotSaved) {
  {
    AuditFile file;
    file.set_AuditFileName(path_);
    ASSERT_TRUE(file.CreateAuditFile());
  }
  EXPECT_THAT(folder_.Names(), IsEmpty());
}

TEST_F(AuditFileTest, SavesAnyNumberOfTimes) {
  Create();
  Save();
  ASSERT_TRUE(file_.CreateCustomer(*SampleCustomer("C1")));
  EXPECT_THAT(Saved(), HasSubstr("<CustomerID>C1</CustomerID>"));
  ASSERT_TRUE(file_.CreateCustomer(*SampleCustomer("C2")));
  EXPECT_THAT(Saved(), AllOf(HasSubstr("<CustomerID>C1</CustomerID>"), HasSubstr("<CustomerID>C2</CustomerID>")));
}

TEST_F(AuditFileTest, SavesUnderTheNameOfTheMomentAlsoOverAnExistingFile) {
  Create();
  const std::string other = folder_.Write("other.xml", "whatever it is");
  file_.set_AuditFileName(other);
  Save();
  EXPECT_EQ(ReadBytes(other), kEmptyFile);
  EXPECT_THAT(folder_.Names(), ElementsAre("other.xml"));
}

TEST_F(AuditFileTest, OpensAddsAndSaves) {
  SaveSampleFile(path_);
  const std::string before = ReadBytes(path_);
  ASSERT_TRUE(file_.OpenAuditFile());
  ASSERT_TRUE(file_.CreateCustomer(*SampleCustomer("C9")));
  const std::string after = Saved();
  EXPECT_THAT(after,
              AllOf(StartsWith(before.substr(0, before.find("</MasterFiles>"))),
                    EndsWith(before.substr(before.find("</MasterFiles>"))), HasSubstr("<CustomerID>C9</CustomerID>")));
}

TEST_F(AuditFileTest, SavingAnOpenedFileAgainChangesNoByte) {
  SaveSampleFile(path_);
  const std::string before = ReadBytes(path_);
  ASSERT_TRUE(file_.OpenAuditFile());
  EXPECT_EQ(Saved(), before);
}

TEST_F(AuditFileTest, SectionsStandInTheOrderOfTheCalls) {
  Create();
  ASSERT_TRUE(file_.CreateSalesInvoices(SalesInvoices()));
  ASSERT_TRUE(file_.CreateGeneralLedgerEntries(GeneralLedgerEntries()));
  ASSERT_TRUE(file_.CreateProduct(Product()));
  ASSERT_TRUE(file_.CreateHeader(Header()));
  const std::string saved = Saved();
  std::vector<size_t> places;
  for (const char* section : {"<SourceDocuments>", "<GeneralLedgerEntries>", "<MasterFiles>", "<Header>"}) {
    places.push_back(saved.find(section));
  }
  EXPECT_THAT(places, ::testing::Each(Not(std::string::npos)));
  EXPECT_TRUE(std::ranges::is_sorted(places));
}

TEST_F(AuditFileTest, SectionsOutOfTheSchemasOrderFailValidation) {
  Create();
  ASSERT_TRUE(file_.CreateProduct(*SampleProduct("P1")));
  ASSERT_TRUE(file_.CreateHeader(*SampleHeader()));
  Save();
  EXPECT_FALSE(file_.ValidateAuditFile());
  EXPECT_THAT(file_, RecordedXmlErrorFrom(kValidationSource));
}

TEST_F(AuditFileTest, EmptyTaxTableWritesNothing) {
  Create();
  ASSERT_TRUE(file_.CreateTaxTable(TaxTable()));
  EXPECT_EQ(Saved(), kEmptyFile);
}

TEST_F(AuditFileTest, ValidatesAFileOfEveryKindOfRecord) {
  SaveSampleFile(path_);
  EXPECT_TRUE(file_.ValidateAuditFile()) << Told(file_.AuditException());
}

TEST_F(AuditFileTest, ValidatesTheFileOnDiskNotTheDocument) {
  SaveSampleFile(path_);
  ASSERT_TRUE(file_.OpenAuditFile());
  ASSERT_TRUE(file_.CreateProduct(*SampleProduct("P1")));
  EXPECT_TRUE(file_.ValidateAuditFile()) << "the second P1 was not saved yet";
  Save();
  EXPECT_FALSE(file_.ValidateAuditFile());
  EXPECT_THAT(file_, RecordedXmlErrorFrom(kValidationSource));
}

TEST_F(AuditFileTest, ValidationReportsTheFirstViolationAlone) {
  SaveSampleFile(path_);
  std::string bytes = ReadBytes(path_);
  for (const std::string_view kept : {"<FiscalYear>2010<", "<StartDate>2010-01-01<"}) {
    const size_t value = bytes.find(kept) + kept.find('>') + 1;
    bytes.replace(value, 4, "ABCD");
  }
  folder_.Write("saft.xml", bytes);
  EXPECT_FALSE(file_.ValidateAuditFile());
  ASSERT_THAT(file_, RecordedXmlErrorFrom(kValidationSource));
  EXPECT_THAT(file_.AuditException()->Description(), AllOf(HasSubstr("FiscalYear"), Not(HasSubstr("StartDate"))));
}

TEST_F(AuditFileTest, ValidationNamesTheLineOfTheViolation) {
  folder_.Write("saft.xml",
                "<?xml version=\"1.0\"?>\n"
                "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">\n"
                "\n"
                "\n"
                "<Unknown/>\n"
                "</AuditFile>\n");
  EXPECT_FALSE(file_.ValidateAuditFile());
  ASSERT_THAT(file_, RecordedXmlErrorFrom(kValidationSource));
  EXPECT_THAT(file_.AuditException()->Description(), HasSubstr("linha 5,"));
}

TEST_F(AuditFileTest, ValidationFailsWithoutAUsableSchemaAndNamesIt) {
  SaveSampleFile(path_);
  std::string other = ReadBytes(ZEVO_SCHEMA_FILE);
  for (size_t at; (at = other.find("PT_1.01_01\"")) != std::string::npos;) other.replace(at, 10, "PT_1.04_01");
  const std::vector<std::string> schemas = {
      folder_.Path("missing.xsd"),
      folder_.Write("malformed.xsd", "<xs:schema"),
      folder_.Write("root.xsd", "<other/>"),
      folder_.Write("empty.xsd", ""),
      folder_.Write("faulty.xsd",
                    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                    "targetNamespace='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><xs:element/></xs:schema>"),
      folder_.Write(
          "none.xsd",
          "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='AuditFile'/></xs:schema>"),
      folder_.Write("other.xsd", other),
      folder_.Path(""),
  };
  for (const std::string& schema : schemas) {
    file_.set_AuditFileSchema(schema);
    EXPECT_FALSE(file_.ValidateAuditFile()) << schema;
    EXPECT_THAT(file_, RecordedXmlErrorFrom(kValidationSource)) << schema;
    EXPECT_THAT(file_.AuditException()->Description(), HasSubstr(schema));
    EXPECT_TRUE(file_.IsSchemaAtFault()) << schema;
  }
  file_.set_AuditFileSchema(ZEVO_SCHEMA_FILE);
  EXPECT_TRUE(file_.ValidateAuditFile()) << Told(file_.AuditException());
  EXPECT_FALSE(file_.IsSchemaAtFault());
}

TEST_F(AuditFileTest, ASchemaOfAnotherNamespaceSaysNothingOfTheFile) {
  folder_.Write("saft.xml", "<AuditFile xmlns='urn:other'/>");
  file_.set_AuditFileSchema(folder_.Write("other.xsd",
                                          "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                                          "targetNamespace='urn:other'><xs:element name='AuditFile'/></xs:schema>"));
  EXPECT_FALSE(file_.ValidateAuditFile());
  EXPECT_TRUE(file_.IsSchemaAtFault());
  EXPECT_THAT(file_.AuditException()->Description(),
              AllOf(HasSubstr("«urn:other»"), HasSubstr("«urn:OECD:StandardAuditFile-Tax:PT_1.01_01»")));
}

TEST_F(AuditFileTest, TheSchemaIsAtFaultNeitherForWhatIsWrongInTheFileNorBeforeItIsLookedAt) {
  file_.set_AuditFileSchema(folder_.Write("broken.xsd", "<xs:schema"));
  EXPECT_FALSE(file_.ValidateAuditFile());
  EXPECT_THAT(file_, Recorded(kFileNotFound, "AuditFile.ValidateAuditFile"));
  EXPECT_FALSE(file_.IsSchemaAtFault());
  folder_.Write("saft.xml", "<AuditFile");
  EXPECT_FALSE(file_.ValidateAuditFile());
  EXPECT_TRUE(file_.IsSchemaAtFault());
  for (const std::string_view bytes : {"<AuditFile", "<AuditFile/>", "", "\xFF"}) {
    folder_.Write("saft.xml", bytes);
    file_.set_AuditFileSchema(ZEVO_SCHEMA_FILE);
    EXPECT_FALSE(file_.ValidateAuditFile());
    EXPECT_FALSE(file_.IsSchemaAtFault()) << bytes;
    EXPECT_THAT(file_.AuditException()->Description(), Not(HasSubstr("xsd")));
  }
}

TEST_F(AuditFileTest, ValidatesWithTheBuiltInSchemaUntilAFileIsNamed) {
  SaveSampleFile(path_);
  file_.set_AuditFileSchema("");
  EXPECT_FALSE(file_.ValidateAuditFile());
  EXPECT_THAT(file_, RecordedError(53, std::string(kValidationSource), HasSubstr("não foi indicado nenhum esquema")));
  EXPECT_TRUE(file_.IsSchemaAtFault());
  UseBuiltInSchema();
  EXPECT_EQ(file_.AuditFileSchema(), "");
  EXPECT_TRUE(file_.ValidateAuditFile()) << Told(file_.AuditException());
  file_.set_AuditFileSchema("");
  EXPECT_TRUE(file_.ValidateAuditFile()) << Told(file_.AuditException());
  file_.set_AuditFileSchema(folder_.Path("missing.xsd"));
  EXPECT_FALSE(file_.ValidateAuditFile());
  EXPECT_TRUE(file_.IsSchemaAtFault());
}

TEST_F(AuditFileTest, ServesAnotherFileAfterClose) {
  for (const char* name : {"first.xml", "second.xml"}) {
    file_.set_AuditFileName(folder_.Path(name));
    ASSERT_TRUE(file_.CreateAuditFile());
    ASSERT_TRUE(WriteSampleRecords(file_));
    Save();
    ASSERT_TRUE(file_.CloseAuditFile());
    EXPECT_TRUE(file_.ValidateAuditFile()) << Told(file_.AuditException());
  }
  EXPECT_EQ(ReadBytes(folder_.Path("first.xml")), ReadBytes(folder_.Path("second.xml")));
}

TEST_F(AuditFileTest, NameWithANulByteLeadsToNoOtherFile) {
  const std::string other = folder_.Write("other.xml", "whatever it is");
  Create();
  file_.set_AuditFileName(other + std::string(1, '\0') + ".xml");
  EXPECT_FALSE(file_.UpdateAuditFile());
  EXPECT_THAT(file_, RecordedError(kBadFileName, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_EQ(ReadBytes(other), "whatever it is");
  EXPECT_TRUE(file_.CloseAuditFile());
  EXPECT_TRUE(file_.DeleteAuditFile()) << "there is no such file";
  EXPECT_EQ(ReadBytes(other), "whatever it is");
}

TEST_F(AuditFileTest, ExceptionOutlivesTheNextOperation) {
  EXPECT_FALSE(file_.UpdateAuditFile());
  const auto kept = file_.AuditException();
  EXPECT_TRUE(file_.CloseAuditFile());
  EXPECT_EQ(kept->Number(), kNotStarted.number);
}

// What each operation does in each state that its checks tell apart.

enum class Document { kClosed, kOpen };
enum class Name { kEmpty, kOfNoFile, kOfAFile };

struct Check {
  Document document;
  Name name;
  const char* operation;
  const LibraryMessage* message;  // null for a success
};

void PrintTo(const Check& check, std::ostream* out) {
  *out << check.operation << (check.document == Document::kOpen ? " open" : " closed") << " name "
       << static_cast<int>(check.name);
}

class AuditFileCheckTest : public AuditFileTest, public ::testing::WithParamInterface<Check> {};

TEST_P(AuditFileCheckTest, FirstCheckThatFailsIsReported) {
  if (GetParam().document == Document::kOpen) Create();
  if (GetParam().name == Name::kOfAFile) SaveSampleFile(path_);
  if (GetParam().name == Name::kEmpty) file_.set_AuditFileName("");
  const Operation& operation = OperationNamed(GetParam().operation);

  EXPECT_EQ(operation.call(file_), GetParam().message == nullptr);
  if (GetParam().message == nullptr) {
    EXPECT_THAT(file_, RecordedNothing());
  } else {
    EXPECT_THAT(file_, Recorded(*GetParam().message, operation.Source()));
  }
}

INSTANTIATE_TEST_SUITE_P(EveryState, AuditFileCheckTest,
                         Values(Check{Document::kClosed, Name::kEmpty, "CreateAuditFile", &kNoFileName},
                                Check{Document::kClosed, Name::kEmpty, "OpenAuditFile", &kNoFileName},
                                Check{Document::kClosed, Name::kEmpty, "UpdateAuditFile", &kNotStarted},
                                Check{Document::kClosed, Name::kEmpty, "CloseAuditFile", nullptr},
                                Check{Document::kClosed, Name::kEmpty, "DeleteAuditFile", &kNoFileName},
                                Check{Document::kClosed, Name::kEmpty, "ValidateAuditFile", &kNoFileName},
                                Check{Document::kClosed, Name::kOfNoFile, "CreateAuditFile", nullptr},
                                Check{Document::kClosed, Name::kOfNoFile, "OpenAuditFile", &kFileNotFound},
                                Check{Document::kClosed, Name::kOfNoFile, "UpdateAuditFile", &kNotStarted},
                                Check{Document::kClosed, Name::kOfNoFile, "CloseAuditFile", nullptr},
                                Check{Document::kClosed, Name::kOfNoFile, "DeleteAuditFile", nullptr},
                                Check{Document::kClosed, Name::kOfNoFile, "ValidateAuditFile", &kFileNotFound},
                                Check{Document::kClosed, Name::kOfAFile, "CreateAuditFile", &kFileExists},
                                Check{Document::kClosed, Name::kOfAFile, "OpenAuditFile", nullptr},
                                Check{Document::kClosed, Name::kOfAFile, "UpdateAuditFile", &kNotStarted},
                                Check{Document::kClosed, Name::kOfAFile, "CloseAuditFile", nullptr},
                                Check{Document::kClosed, Name::kOfAFile, "DeleteAuditFile", nullptr},
                                Check{Document::kClosed, Name::kOfAFile, "ValidateAuditFile", nullptr},
                                Check{Document::kOpen, Name::kEmpty, "CreateAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kEmpty, "OpenAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kEmpty, "UpdateAuditFile", &kNoFileName},
                                Check{Document::kOpen, Name::kEmpty, "CloseAuditFile", nullptr},
                                Check{Document::kOpen, Name::kEmpty, "DeleteAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kEmpty, "ValidateAuditFile", &kNoFileName},
                                Check{Document::kOpen, Name::kOfNoFile, "CreateAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kOfNoFile, "OpenAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kOfNoFile, "UpdateAuditFile", nullptr},
                                Check{Document::kOpen, Name::kOfNoFile, "CloseAuditFile", nullptr},
                                Check{Document::kOpen, Name::kOfNoFile, "DeleteAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kOfNoFile, "ValidateAuditFile", &kFileNotFound},
                                Check{Document::kOpen, Name::kOfAFile, "CreateAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kOfAFile, "OpenAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kOfAFile, "UpdateAuditFile", nullptr},
                                Check{Document::kOpen, Name::kOfAFile, "CloseAuditFile", nullptr},
                                Check{Document::kOpen, Name::kOfAFile, "DeleteAuditFile", &kAlreadyStarted},
                                Check{Document::kOpen, Name::kOfAFile, "ValidateAuditFile", nullptr}));

class AuditFileRecordOperationTest : public AuditFileTest, public ::testing::WithParamInterface<Operation> {};

TEST_P(AuditFileRecordOperationTest, FailsWithoutADocument) {
  EXPECT_FALSE(GetParam().call(file_));
  EXPECT_THAT(file_, Recorded(kNotStarted, GetParam().Source()));
}

TEST_P(AuditFileRecordOperationTest, FailsOnceTheDocumentIsClosed) {
  Create();
  file_.CloseAuditFile();
  EXPECT_FALSE(GetParam().call(file_));
  EXPECT_THAT(file_, Recorded(kNotStarted, GetParam().Source()));
}

INSTANTIATE_TEST_SUITE_P(EveryRecord, AuditFileRecordOperationTest, ValuesIn(RecordOperations()));

TEST_F(AuditFileTest, SuccessOfAnyOperationClearsTheException) {
  Create();
  for (const Operation& operation : RecordOperations()) {
    ASSERT_FALSE(file_.CreateAuditFile());
    EXPECT_TRUE(operation.call(file_)) << operation.name << ": " << Told(file_.AuditException());
    EXPECT_THAT(file_, RecordedNothing()) << operation.name;
  }
}

TEST_F(AuditFileTest, FailureReplacesTheExceptionBefore) {
  EXPECT_FALSE(file_.UpdateAuditFile());
  EXPECT_FALSE(file_.OpenAuditFile());
  EXPECT_THAT(file_, Recorded(kFileNotFound, "AuditFile.OpenAuditFile"));
}

// What mappers raise reaches the host as they raised it.

struct MapperFailure {
  std::vector<const char*> before;
  const char* operation;
  const LibraryMessage* message;
  const char* source;
};

void PrintTo(const MapperFailure& failure, std::ostream* out) { *out << failure.operation; }

class AuditFileMapperFailureTest : public AuditFileTest, public ::testing::WithParamInterface<MapperFailure> {};

TEST_P(AuditFileMapperFailureTest, KeepsTheSourceAndWritesNothing) {
  Create();
  for (const char* name : GetParam().before) ASSERT_TRUE(OperationNamed(name).call(file_));
  const std::string before = Saved();

  EXPECT_FALSE(OperationNamed(GetParam().operation).call(file_));
  EXPECT_THAT(file_, Recorded(*GetParam().message, GetParam().source));
  EXPECT_EQ(Saved(), before);
}

INSTANTIATE_TEST_SUITE_P(
    EveryMessage, AuditFileMapperFailureTest,
    Values(MapperFailure{{"CreateHeader"}, "CreateHeader", &kHeaderExists, "HeaderDALC.CreateHeader"},
           MapperFailure{{"CreateGeneralLedgerEntries"},
                         "CreateGeneralLedgerEntries",
                         &kMessage201,
                         "GeneralLedgerEntriesDALC.CreateGeneralLedgerEntries"},
           MapperFailure{
               {}, "UpdateGeneralLedgerEntries", &kMessage202, "GeneralLedgerEntriesDALC.UpdateGeneralLedgerEntries"},
           MapperFailure{{}, "CreateJournal", &kMessage201, "JournalDALC.CreateJournal"},
           MapperFailure{{}, "CreateTransaction", &kJournalMissing, "TransactionDALC.CreateTransaction"},
           MapperFailure{{"CreateGeneralLedgerEntries"},
                         "CreateTransaction",
                         &kJournalMissing,
                         "TransactionDALC.CreateTransaction"},
           MapperFailure{{"CreateSalesInvoices"},
                         "CreateSalesInvoices",
                         &kSalesInvoicesExist,
                         "SalesInvoicesDALC.CreateSalesInvoices"},
           MapperFailure{{}, "UpdateSalesInvoices", &kSalesInvoicesMissing, "SalesInvoicesDALC.UpdateSalesInvoices"},
           MapperFailure{{}, "CreateInvoice", &kSalesInvoicesMissing, "InvoiceDALC.CreateInvoice"}));

TEST_F(AuditFileTest, CharacterThatXmlForbidsIsRefusedAndTheFileStaysReadable) {
  Create();
  const auto customer = SampleCustomer("C1");
  customer->set_CompanyName("a\x01z");
  EXPECT_FALSE(file_.CreateCustomer(*customer));
  EXPECT_THAT(file_, RecordedError(kInvalidCall, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_THAT(Saved(), Not(HasSubstr("CompanyName")));
  file_.CloseAuditFile();
  EXPECT_TRUE(file_.OpenAuditFile()) << Told(file_.AuditException());
}

TEST_F(AuditFileTest, JournalIdentifierWithADoubleQuoteFindsNoOtherJournal) {
  Create();
  ASSERT_TRUE(file_.CreateGeneralLedgerEntries(GeneralLedgerEntries()));
  ASSERT_TRUE(file_.CreateJournal(*SampleJournal("D1")));
  const auto journal = SampleJournal("D1\" or \"1\"=\"1");
  ASSERT_TRUE(file_.CreateJournal(*journal));
  const std::string before = Saved();
  EXPECT_FALSE(file_.CreateTransaction(*SampleTransaction(1), journal.get()));
  ASSERT_NE(file_.AuditException(), nullptr);
  EXPECT_GT(file_.AuditException()->Number(), 0);
  EXPECT_NE(file_.AuditException()->Description(), "");
  EXPECT_EQ(Saved(), before);
}

// Running totals.

class AuditFileRunningTotalsTest : public AuditFileTest {
 protected:
  void SetUp() override {
    Create();
    ASSERT_TRUE(file_.CreateGeneralLedgerEntries(entries_));
    ASSERT_TRUE(file_.CreateJournal(*journal_));
    ASSERT_TRUE(file_.CreateSalesInvoices(invoices_));
  }

  bool Write(const Transaction& transaction) { return file_.CreateTransaction(transaction, journal_.get(), &entries_); }
  bool Write(const Invoice& invoice) { return file_.CreateInvoice(invoice, &invoices_); }

  template <class Totals>
  static std::vector<int64_t> Of(const Totals& totals) {
    return {totals.NumberOfEntries(), totals.TotalDebit().Scaled(), totals.TotalCredit().Scaled()};
  }

  std::shared_ptr<Journal> journal_ = SampleJournal("D1");
  GeneralLedgerEntries entries_;
  SalesInvoices invoices_;
};

TEST_F(AuditFileRunningTotalsTest, AddEveryLineOfATransactionExactly) {
  ASSERT_TRUE(Write(*SampleTransaction(1, Amount::FromText("0.0001"), Amount::FromText("922337203685477.5807"))));
  ASSERT_TRUE(Write(*SampleTransaction(2, Amount::FromText("-12.3456"), 0)));
  EXPECT_THAT(Of(entries_), ElementsAre(2, -123455, 9223372036854775807));
}

TEST_F(AuditFileRunningTotalsTest, AddBothAmountsOfALineAlthoughOneIsWritten) {
  const auto transaction = SampleTransaction(1, 5, 7);
  transaction->Line()->Item(1)->set_CreditAmount(3);
  const auto invoice = SampleInvoice(1, "C1", "P1", 7);
  invoice->Line()->Add(SampleInvoiceLine(2, "P1", 5, 3));
  ASSERT_TRUE(Write(*transaction));
  ASSERT_TRUE(Write(*invoice));
  EXPECT_THAT(Of(entries_), ElementsAre(1, 50000, 100000));
  EXPECT_THAT(Of(invoices_), ElementsAre(1, 50000, 100000));
}

TEST_F(AuditFileRunningTotalsTest, AddToWhatTheHostPutThere) {
  entries_.set_NumberOfEntries(40);
  entries_.set_TotalDebit(1000);
  ASSERT_TRUE(Write(*SampleTransaction(1, 1, 2)));
  EXPECT_THAT(Of(entries_), ElementsAre(41, 10010000, 20000));
}

TEST_F(AuditFileRunningTotalsTest, CountARecordWithoutLines) {
  ASSERT_TRUE(Write(Transaction()));
  ASSERT_TRUE(Write(Invoice()));
  EXPECT_THAT(Of(entries_), ElementsAre(1, 0, 0));
  EXPECT_THAT(Of(invoices_), ElementsAre(1, 0, 0));
}

TEST_F(AuditFileRunningTotalsTest, WriteNothingByThemselves) {
  ASSERT_TRUE(Write(*SampleTransaction(1)));
  EXPECT_THAT(Saved(), HasSubstr("<NumberOfEntries>0</NumberOfEntries><TotalDebit>.00</TotalDebit>"));
  ASSERT_TRUE(file_.UpdateGeneralLedgerEntries(entries_));
  EXPECT_THAT(Saved(), HasSubstr("<NumberOfEntries>1</NumberOfEntries><TotalDebit>10.00</TotalDebit>"));
}

TEST_F(AuditFileRunningTotalsTest, AreNotNeeded) {
  EXPECT_TRUE(file_.CreateTransaction(*SampleTransaction(1), journal_.get()));
  EXPECT_TRUE(file_.CreateTransaction(*SampleTransaction(2), nullptr, nullptr));
  EXPECT_TRUE(file_.CreateInvoice(*SampleInvoice(1, "C1", "P1")));
  EXPECT_TRUE(file_.CreateInvoice(*SampleInvoice(2, "C1", "P1"), nullptr));
}

TEST_F(AuditFileRunningTotalsTest, CancelledInvoiceIsWrittenButNeitherCountedNorTotalled) {
  for (const char* cancelled : {"Anulado", "ANULADO", "anulado", "aNuLaDo"}) {
    const auto invoice = SampleInvoice(1, "C1", "P1");
    invoice->set_TransactionID(cancelled);
    EXPECT_TRUE(Write(*invoice)) << cancelled;
    EXPECT_THAT(Of(invoices_), ElementsAre(0, 0, 0)) << cancelled;
    EXPECT_THAT(Saved(), HasSubstr("<TransactionID>" + std::string(cancelled) + "</TransactionID>"));
  }
}

TEST_F(AuditFileRunningTotalsTest, InvoiceIsCancelledByTheWholeTransactionIdAlone) {
  const auto invoice = SampleInvoice(1, "C1", "P1");
  invoice->set_InvoiceStatus(isA);
  for (const char* other : {"", "Anulado ", " Anulado", "Anulada", "Anulado1"}) {
    invoices_.Reset();
    invoice->set_TransactionID(other);
    EXPECT_TRUE(Write(*invoice));
    EXPECT_THAT(Of(invoices_), ElementsAre(1, 0, 100000)) << '"' << other << '"';
  }
}

TEST_F(AuditFileRunningTotalsTest, TransactionIsNeverCancelled) {
  const auto transaction = SampleTransaction(1);
  transaction->set_TransactionID("Anulado");
  EXPECT_TRUE(Write(*transaction));
  EXPECT_THAT(Of(entries_), ElementsAre(1, 100000, 100000));
}

TEST_F(AuditFileRunningTotalsTest, FailureLeavesThemAsTheyWere) {
  entries_.set_TotalDebit(1);
  const auto other = SampleJournal("D2");
  EXPECT_FALSE(file_.CreateTransaction(*SampleTransaction(1), other.get(), &entries_));
  EXPECT_THAT(file_, Recorded(kJournalMissing, "TransactionDALC.CreateTransaction"));
  EXPECT_THAT(Of(entries_), ElementsAre(0, 10000, 0));

  AuditFile closed;
  EXPECT_FALSE(closed.CreateInvoice(*SampleInvoice(1, "C1", "P1"), &invoices_));
  EXPECT_THAT(Of(invoices_), ElementsAre(0, 0, 0));
}

TEST_F(AuditFileRunningTotalsTest, OverflowFailsAndWhatWasAddedBeforeStays) {
  entries_.set_TotalDebit(1);
  entries_.set_TotalCredit(kLargest);
  EXPECT_FALSE(Write(*SampleTransaction(1, 5, 7)));
  EXPECT_THAT(file_, RecordedError(kOverflow, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_THAT(Of(entries_), ElementsAre(1, 60000, kLargest.Scaled()));

  const auto invoice = SampleInvoice(1, "C1", "P1", 7);
  invoice->Line()->Add(SampleInvoiceLine(2, "P1", 5, kLargest));
  invoice->Line()->Add(SampleInvoiceLine(3, "P1", 5, 3));
  EXPECT_FALSE(Write(*invoice));
  EXPECT_THAT(file_, RecordedError(kOverflow, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_THAT(Of(invoices_), ElementsAre(1, 50000, 70000));
}

TEST_F(AuditFileRunningTotalsTest, OverflowOfTheCountFailsAndLeavesAllOfThemAsTheyWere) {
  constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
  entries_.set_NumberOfEntries(kMost);
  EXPECT_FALSE(Write(*SampleTransaction(1)));
  EXPECT_THAT(file_, RecordedError(kOverflow, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_THAT(Of(entries_), ElementsAre(kMost, 0, 0));
}

}  // namespace
}  // namespace zevo
