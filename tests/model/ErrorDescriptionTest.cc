// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/ErrorDescription.h>

#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>

#include <cerrno>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include "tests/support/Errors.h"

namespace zevo {
namespace {

AuditException Exception(int32_t number, std::string_view description, std::string_view source = kRunTimeSource) {
  AuditException exception;
  exception.set_Number(number);
  exception.set_Description(description);
  exception.set_Source(source);
  return exception;
}
AuditException Exception(const Error& error) { return Exception(error.Number(), error.Description(), error.Source()); }
AuditException Exception(Message message, std::string_view source = "AuditFile.OpenAuditFile",
                         std::string_view description = {}) {
  const int32_t number = testing::NumberOf(message);
  return Exception(number, description.empty() ? MessageText(number) : description, source);
}

std::string Portuguese(const AuditException& exception) { return Describe(exception, Language::kPortuguese); }
std::string English(const AuditException& exception) { return Describe(exception, Language::kEnglish); }

constexpr Message kMessages[] = {
    Message::kNoFileName,       Message::kFileNotFound,   Message::kFileExists,           Message::kAlreadyStarted,
    Message::kNotStarted,       Message::kHeaderExists,   Message::kHeaderMissing,        Message::kEntriesMissingText,
    Message::kEntriesExistText, Message::kJournalMissing, Message::kSalesInvoicesMissing, Message::kSalesInvoicesExist,
    Message::kEntityNotXml,     Message::kReadingAborted,
};

TEST(ErrorDescriptionTest, EveryMessageIsToldInBothLanguages) {
  std::set<std::string> sentences;
  for (const Message message : kMessages) {
    const AuditException exception = Exception(message);
    EXPECT_EQ(Portuguese(exception), MessageText(exception.Number()));
    EXPECT_NE(English(exception), exception.Description());
    sentences.insert(English(exception));
  }
  EXPECT_EQ(sentences.size(), std::size(kMessages));
  EXPECT_EQ(English(Exception(Message::kReadingAborted)), "The reading of the file was ended by the user.");
}

TEST(ErrorDescriptionTest, TheSectionOfEntriesSaysWhatHappened) {
  const std::string_view source = "GeneralLedgerEntriesDALC.CreateGeneralLedgerEntries";
  EXPECT_EQ(English(Exception(Message::kEntriesMissingText, source)), "The file has a GeneralLedgerEntries already.");
  EXPECT_EQ(Portuguese(Exception(Message::kEntriesExistText, source)),
            "Ainda não existe um GeneralLedgerEntries associado ao ficheiro.");
}

TEST(ErrorDescriptionTest, AnotherVersionIsNamed) {
  const AuditException exception =
      Exception(Message::kOtherVersion, "", "O ficheiro é da versão 1.04_01; só a versão 1.01_01 é lida");
  EXPECT_EQ(Portuguese(exception), "O ficheiro é da versão 1.04_01; só a versão 1.01_01 é lida.");
  EXPECT_EQ(English(exception), "The file is of version 1.04_01; only version 1.01_01 is read.");
  EXPECT_EQ(English(Exception(Message::kNoAuditFile, "", "O ficheiro não é um ficheiro de auditoria")),
            "The file is not an audit file.");
}

TEST(ErrorDescriptionTest, ARuleThatFailedIsNamed) {
  const AuditException exception = Exception(
      Message::kRuleFailed, "", "Há um erro deste programa na regra TOT-NET (basic_string); comunique-o, por favor");
  EXPECT_EQ(Portuguese(exception),
            "Há um erro deste programa na regra TOT-NET (basic_string); comunique-o, por favor.");
  EXPECT_EQ(English(exception),
            "There is a fault of this program in the rule TOT-NET (basic_string); please report it.");
}

TEST(ErrorDescriptionTest, NoRoomForACopyOfStandardInputIsTold) {
  const Error error = MakeRunTimeError(RunTimeError::kDeviceIO, "sem lugar para uma cópia da entrada padrão");
  AuditException exception;
  exception.set_Number(error.Number());
  exception.set_Description(error.Description());
  EXPECT_EQ(Portuguese(exception),
            "Não há lugar para uma cópia temporária da entrada padrão, que se lê mais de uma vez.");
}

TEST(ErrorDescriptionTest, EveryRunTimeErrorIsToldWithItsDetail) {
  std::set<std::string> sentences;
  for (const RunTimeError number :
       {RunTimeError::kInvalidCall, RunTimeError::kOverflow, RunTimeError::kOutOfMemory,
        RunTimeError::kSubscriptOutOfRange, RunTimeError::kDivisionByZero, RunTimeError::kTypeMismatch,
        RunTimeError::kBadFileName, RunTimeError::kFileNotFound, RunTimeError::kDeviceIO, RunTimeError::kDiskFull,
        RunTimeError::kPermissionDenied, RunTimeError::kPathFileAccess, RunTimeError::kPathNotFound,
        RunTimeError::kObjectNotSet, RunTimeError::kDuplicateKey}) {
    const Error bare = MakeRunTimeError(number);
    EXPECT_EQ(Portuguese(Exception(bare)), bare.Description());
    EXPECT_NE(English(Exception(bare)), bare.Description());
    sentences.insert(English(Exception(bare)));
    const Error detailed = MakeRunTimeError(number, "x");
    EXPECT_EQ(Portuguese(Exception(detailed)), detailed.Description());
    const std::string english = English(Exception(detailed));
    EXPECT_EQ(english, English(Exception(bare)).insert(english.size() - 5, " (x)"));
  }
  EXPECT_EQ(sentences.size(), 15U);
}

TEST(ErrorDescriptionTest, TheSystemsReasonsAreWorded) {
  std::set<std::string> sentences;
  const int reasons[] = {ENOENT, EACCES, EPERM,  EROFS,  ENOSPC, EDQUOT,  EFBIG, EIO,    EISDIR, ENOTDIR,
                         ELOOP,  ENFILE, EMFILE, EEXIST, EBUSY,  ETXTBSY, EPIPE, ESTALE, EINVAL, ENAMETOOLONG};
  for (const int reason : reasons) {
    const std::string said = std::generic_category().message(reason);
    const AuditException exception = Exception(MakeRunTimeError(RunTimeError::kPathFileAccess, said + ": a: b.xml"));
    for (const std::string& sentence : {Portuguese(exception), English(exception)}) {
      EXPECT_EQ(sentence.find(said), std::string::npos) << sentence;
      EXPECT_TRUE(sentence.ends_with(": a: b.xml.")) << sentence;
      sentences.insert(sentence);
    }
  }
  EXPECT_EQ(sentences.size(), 2 * std::size(reasons));
}

TEST(ErrorDescriptionTest, AFileThatCannotBeOpenedIsTold) {
  const AuditException missing = Exception(testing::ErrorOf([] { InputFile file("/none/file.xml"); }));
  EXPECT_EQ(Portuguese(missing), "O ficheiro não existe: /none/file.xml.");
  EXPECT_EQ(English(missing), "There is no such file: /none/file.xml.");
  const AuditException folder = Exception(testing::ErrorOf([] { OutputFile file("/none/file.xml"); }));
  EXPECT_EQ(Portuguese(folder), "A pasta não existe: /none/file.xml.");
  const AuditException device =
      Exception(testing::ErrorOf([] { InputFile file("/dev/null", InputFile::Kind::kRegular); }));
  EXPECT_EQ(English(device), "Not a file: /dev/null.");
}

TEST(ErrorDescriptionTest, AnUnknownReasonIsToldAsItIs) {
  const AuditException exception = Exception(MakeRunTimeError(RunTimeError::kPathFileAccess, "Odd reason: a.xml"));
  EXPECT_EQ(Portuguese(exception), exception.Description());
  EXPECT_EQ(English(exception), "The file or its path cannot be used (Odd reason: a.xml).");
}

TEST(ErrorDescriptionTest, TheParserIsToldWithItsNamesAndThePlace) {
  const AuditException mismatch =
      Exception(76, "Opening and ending tag mismatch: Customer line 50 and Customr (linha 71, coluna 9)", "Any.Source");
  EXPECT_EQ(Portuguese(mismatch), "O elemento Customer (linha 50) fecha com Customr (linha 71, coluna 9).");
  EXPECT_EQ(English(mismatch), "Element Customer (line 50) is closed by Customr (line 71, column 9).");
  EXPECT_EQ(Portuguese(Exception(76, "other words (linha 71)")), "Um elemento fecha com o nome de outro (linha 71).");
}

TEST(ErrorDescriptionTest, AnUnknownNumberOfTheParserIsTold) {
  const AuditException exception = Exception(299, "Odd thing (linha 2, coluna 3)", "Any.Source");
  EXPECT_EQ(Portuguese(exception), "O XML não está bem formado (erro 299 do analisador) (linha 2, coluna 3).");
  EXPECT_EQ(English(exception), "The XML is not well-formed (error 299 of the parser) (line 2, column 3).");
}

// The parser has the number of "not enough memory" for something else.
TEST(ErrorDescriptionTest, ANumberThatBothHaveIsToldByItsDescription) {
  EXPECT_EQ(English(Exception(7, "Memória insuficiente.")), "Not enough memory.");
  EXPECT_EQ(English(Exception(7, "CharRef: invalid decimal value (linha 1, coluna 2)", "Any.Source")),
            "A character reference, which is written like &#233;, is wrong (line 1, column 2).");
}

TEST(ErrorDescriptionTest, AHostsOwnErrorIsToldAsItIs) {
  for (const int32_t number : {6, 76, 1840, 3000000, -5}) {
    EXPECT_EQ(Portuguese(Exception(number, "Enough of it", "Host")), "Enough of it");
    EXPECT_EQ(English(Exception(number, "Enough of it", "Host")), "Enough of it");
  }
}

TEST(ErrorDescriptionTest, AViolationIsToldAsTheValidatorDoes) {
  const AuditException exception =
      Exception(1840,
                "Element '{urn:a}InvoiceStatus': [facet 'enumeration'] The value 'X' is not an element of the set "
                "{'N', 'S'}. (linha 7, coluna 3)",
                "AuditFile.ValidateAuditFile");
  EXPECT_EQ(Portuguese(exception), "InvoiceStatus, \"X\", tem de ser um de: N, S (linha 7, coluna 3).");
  EXPECT_EQ(English(exception), "InvoiceStatus, \"X\", must be one of: N, S (line 7, column 3).");
}

TEST(ErrorDescriptionTest, ASchemaThatCannotBeUsedIsToldWithItsName) {
  const AuditException exception =
      Exception(3004,
                "own.xsd: Element '{http://www.w3.org/2001/XMLSchema}element', attribute 'type': The QName value "
                "'x' does not resolve to a(n) type definition. (linha 2)");
  EXPECT_EQ(Portuguese(exception),
            "own.xsd: O esquema não pode ser usado (erro 3004 do analisador), em «element» (linha 2).");
  EXPECT_EQ(English(exception),
            "own.xsd: The schema cannot be used (error 3004 of the parser), in \"element\": Element "
            "'{http://www.w3.org/2001/XMLSchema}element', attribute 'type': The QName value 'x' does not resolve to "
            "a(n) type definition (line 2).");
  const AuditException none = Exception(1772, "own.xsd: The XML document 'in_memory_buffer' is not a schema document.");
  EXPECT_EQ(Portuguese(none), "own.xsd: O ficheiro não é um esquema XML (XSD).");
  EXPECT_EQ(English(none), "own.xsd: The file is not an XML schema (XSD).");
  EXPECT_EQ(English(Exception(111, "own.xsd: O esquema tem mais de 10 000 elementos")),
            "own.xsd: The schema has more than 10,000 elements.");
  EXPECT_EQ(English(Exception(76, "a: b.xsd: Opening and ending tag mismatch: c line 5 and d (linha 7, coluna 9)")),
            "a: b.xsd: Element c (line 5) is closed by d (line 7, column 9).");
}

TEST(ErrorDescriptionTest, AnErrorOfTheSystemIsToldByItsNumber) {
  EXPECT_EQ(DescribeSystemError(ENOSPC, Language::kPortuguese), "O disco está cheio");
  EXPECT_EQ(DescribeSystemError(ENOSPC, Language::kEnglish), "The disk is full");
  EXPECT_EQ(DescribeSystemError(ENOENT, Language::kEnglish), "There is no such file");
  EXPECT_EQ(DescribeSystemError(ENOENT, Language::kEnglish, true), "There is no such folder");
  EXPECT_EQ(DescribeSystemError(ECHILD, Language::kPortuguese), std::generic_category().message(ECHILD));
}

}  // namespace
}  // namespace zevo
