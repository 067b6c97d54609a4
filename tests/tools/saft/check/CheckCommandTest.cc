// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/tools/saft/check/ToolCheckTest.h"

namespace zevo {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kCleanVerdict = ": no errors or warnings (3 documents, 3 transactions)\n";
const std::string kBadVerdict = ": 2 errors, 1 warning, 1 note (3 documents, 3 transactions)\n";

class CheckCommandTest : public testing::ToolCheckTest {
 protected:
  // What a run answers that neither judges nor fails by a signal.
  void ExpectRefused(const std::vector<std::string>& options, const std::string& message) const {
    std::vector<std::string> arguments{"check", WriteClean()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "saft: " + message + "\n");
  }
};

TEST_F(CheckCommandTest, ACleanFileIsToldInOneLine) {
  const std::string file = WriteClean();
  const testing::Outcome outcome = Run({"check", file});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, file + kCleanVerdict);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(Run({"check", file, "--lang", "pt"}).out, file + ": sem erros nem avisos (3 documentos, 3 movimentos)\n");
}

TEST_F(CheckCommandTest, FindingsAreToldByRuleTheWorstFirst) {
  const std::string file = WriteBad();
  const testing::Outcome outcome = Run({"check", file});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "error GL-RECORD: Lines of the transaction (2)\n"
            "  Transaction 2008-03-05 V 1, line 2: RecordID 1 appears more than once in the transaction. [" +
                Place("<RecordID>", 2) +
                "]\n"
                "  Transaction 2008-03-05 V 1, line 3: RecordID 1 appears more than once in the transaction. [" +
                Place("<RecordID>", 3) +
                "]\n\n"
                "warning HDR-PERIOD: Period of the file (1 warning, 1 note)\n"
                "  Header: the fiscal year is 2011 and should be 2008, in which the period begins. [" +
                Place("<FiscalYear>") +
                "]\n"
                "  note: Header: the file was created on 2008-12-30, before the end of its period, on 2008-12-31. [" +
                Place("<DateCreated>") + "]\n\n" + file + kBadVerdict);
}

TEST_F(CheckCommandTest, InPortuguese) {
  const std::string file = WriteBad();
  EXPECT_EQ(Run({"check", file, "--lang", "pt", "--severity", "GL-RECORD=off"}).out,
            "aviso HDR-PERIOD: Período do ficheiro (1 aviso, 1 informação)\n"
            "  Cabeçalho: o exercício é 2011, e devia ser 2008, em que o período começa. [" +
                Lugar("<FiscalYear>") +
                "]\n"
                "  informação: Cabeçalho: o ficheiro foi criado em 2008-12-30, antes do fim do seu período, em "
                "2008-12-31. [" +
                Lugar("<DateCreated>") + "]\n\n" + file + ": 1 aviso, 1 informação (3 documentos, 3 movimentos)\n");
}

TEST_F(CheckCommandTest, WarningsAloneAreNoError) {
  const testing::Outcome outcome = Run({"check", WriteBad(), "--severity", "GL-RECORD=warning"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_THAT(outcome.out, EndsWith(": 3 warnings, 1 note (3 documents, 3 transactions)\n"));
  EXPECT_EQ(Run({"check", WriteBad(), "--severity", "HDR-PERIOD=error", "--severity", "GL-RECORD=off"}).code, 0)
      << "what a rule tells softer stays so";
}

TEST_F(CheckCommandTest, OfARuleSomeAreListedAndAllCounted) {
  const testing::Outcome outcome = Run({"check", WriteBad(), "--max", "1"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_THAT(outcome.out,
              AllOf(StartsWith("error GL-RECORD: Lines of the transaction (2)\n  Transaction "),
                    HasSubstr(" [" + Place("<RecordID>", 2) + "]\n  … and 1 more\n\n"), EndsWith(kBadVerdict)));
  EXPECT_THAT(Run({"check", WriteBad(), "--max", "1", "--lang", "pt"}).out, HasSubstr("\n  … e mais 1\n"));
  EXPECT_EQ(Run({"check", WriteBad(), "--max", "0"}).out, Run({"check", WriteBad()}).out);
}

TEST_F(CheckCommandTest, OfFindingsThereMayBeASummary) {
  const std::string file = WriteBad();
  const testing::Outcome outcome = Run({"check", "--summary", file});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out,
            "  error    GL-RECORD   Lines of the transaction  2\n"
            "  warning  HDR-PERIOD  Period of the file        2\n" +
                file + kBadVerdict);
}

TEST_F(CheckCommandTest, SummariesOfManyFilesAreSetOff) {
  const std::string clean = WriteClean();
  const std::string bad = WriteBad();
  EXPECT_THAT(Run({"check", "--summary", clean, bad, clean}).out,
              AllOf(StartsWith(clean + kCleanVerdict + "  error    GL-RECORD "),
                    EndsWith("\n" + bad + kBadVerdict + "\n" + clean + kCleanVerdict +
                             "3 files: 2 without errors or warnings, 1 with errors\n")));
}

TEST_F(CheckCommandTest, EachOfManyFilesHasItsVerdictAndTheExitCodeIsThatOfTheWorst) {
  const std::string clean = WriteClean();
  const std::string bad = WriteBad();
  const std::string none = folder_.Path("none.xml");
  testing::Outcome outcome = Run({"check", clean, bad});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_THAT(outcome.out, StartsWith(clean + kCleanVerdict + bad + "\n\nerror GL-RECORD: "));
  EXPECT_THAT(outcome.out,
              EndsWith("\n\n" + bad + kBadVerdict + "\n2 files: 1 without errors or warnings, 1 with errors\n"));
  outcome = Run({"check", none, folder_.Path("data"), clean});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, none + ": not judged\n" + folder_.Path("data") + ": not judged\n" + clean + kCleanVerdict +
                             "3 files: 1 without errors or warnings, 2 not judged\n");
  EXPECT_EQ(outcome.err,
            "saft: " + none + ": There is no such SAFT-PT file.\nsaft: " + folder_.Path("data") + ": is a folder.\n");
}

TEST_F(CheckCommandTest, ManyFilesAreCountedByTheirVerdicts) {
  const std::string warned = WriteWarned();
  const std::string none = folder_.Path("none.xml");
  EXPECT_THAT(Run({"check", WriteClean(), WriteBad(), warned, none, warned, "--lang", "pt"}).out,
              EndsWith("\n5 ficheiros: 1 sem erros nem avisos, 2 com avisos, 1 com erros, 1 por verificar\n"));
  EXPECT_THAT(Run({"check", WriteClean(), warned}).out,
              EndsWith("\n2 files: 1 without errors or warnings, 1 with warnings\n"));
  EXPECT_THAT(Run({"check", warned}).out, Not(HasSubstr("files")));
  EXPECT_THAT(Run({"check", warned, warned, "--json"}).out, Not(HasSubstr("2 files")));
}

TEST_F(CheckCommandTest, AFileThatBreaksOffIsToldAsFarAsItGoes) {
  const std::string file = folder_.Write("cut.xml", bad_.substr(0, bad_.size() - 20));
  const testing::Outcome outcome = Run({"check", file});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.out,
              AllOf(StartsWith("error GL-RECORD: "), EndsWith(": not judged, 2 errors, 1 warning, 1 note\n")));
  EXPECT_THAT(outcome.err, AllOf(StartsWith("saft: " + file + ": "), HasSubstr("(line ")));
}

TEST_F(CheckCommandTest, AFileOfAnotherVersionIsToldOnce) {
  const std::string file = folder_.Write(
      "other.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.04_01"><Header/></AuditFile>)");
  testing::Outcome outcome = Run({"check", file});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, file + ": not judged\n");
  EXPECT_EQ(outcome.err, "saft: " + file + ": The file is of version 1.04_01; only version 1.01_01 is read.\n");
  outcome = Run({"check", file, "--json"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, R"({"file":")" + file +
                             R"(","version":"1.04_01","verdict":"not-judged",)"
                             R"("error":"The file is of version 1.04_01; only version 1.01_01 is read.",)"
                             R"("counts":{"VERSION":1},"findings":[{"rule":"VERSION","severity":"error","kind":null,)"
                             R"("key":"","element":"/AuditFile","line":1,"column":1,"found":"1.04_01",)"
                             R"("expected":"1.01_01","difference":"",)"
                             R"("message":"The file is of version 1.04_01; only version 1.01_01 is checked."}]})"
                             "\n");
}

TEST_F(CheckCommandTest, ProgramsGetAnObjectAFile) {
  const std::string clean = WriteClean();
  const std::string bad = WriteBad("bad \u00e9.xml");
  const testing::Outcome outcome = Run({"check", clean, bad, "--json", "--max", "1"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, "");
  const auto number = [](int64_t value) { return std::to_string(value); };
  EXPECT_EQ(outcome.out,
            R"({"file":")" + clean +
                R"(","version":"1.01_01","verdict":"clean","error":null,"counts":{},"findings":[]})"
                "\n"
                R"({"file":")" +
                bad +
                R"(","version":"1.01_01","verdict":"errors","error":null,"counts":{"HDR-PERIOD":2,"GL-RECORD":2},)"
                R"("findings":[{"rule":"HDR-PERIOD","severity":"warning","kind":"Header","key":"",)"
                R"("element":"FiscalYear","line":)" +
                number(LineOf("<FiscalYear>")) + R"(,"column":)" + number(ColumnOf("<FiscalYear>")) +
                R"(,"found":"2011","expected":"2008","difference":"",)"
                R"("message":"Header: the fiscal year is 2011 and should be 2008, in which the period begins."},)"
                R"({"rule":"GL-RECORD","severity":"error","kind":"Transaction","key":"2008-03-05 V 1",)"
                R"("element":"Line[2]/RecordID","line":)" +
                number(LineOf("<RecordID>", 2)) + R"(,"column":)" + number(ColumnOf("<RecordID>", 2)) +
                R"(,"found":"1","expected":"","difference":"","message":"Transaction 2008-03-05 V 1, line 2: )"
                R"(RecordID 1 appears more than once in the transaction."}]})"
                "\n");
}

TEST_F(CheckCommandTest, WhatKeptAFileFromBeingJudgedIsInItsObject) {
  const std::string none = folder_.Path("none.xml");
  const testing::Outcome outcome = Run({"check", none, "--json", "--lang", "pt"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, R"({"file":")" + none +
                             R"(","version":null,"verdict":"not-judged","error":"Ficheiro SAFT-PT não encontrado.",)"
                             R"("counts":{},"findings":[]})"
                             "\n");
}

TEST_F(CheckCommandTest, TheStandardInputIsJudgedLikeAFile) {
  const std::string file = WriteBad();
  std::string expected = Run({"check", file}).out;
  expected.replace(expected.rfind(file), file.size(), "-");
  for (const std::string& script : {"saft check - < '" + file + "'", "cat '" + file + "' | saft check -"}) {
    const testing::Outcome outcome = RunInShell(script);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, expected);
  }
  const testing::Outcome closed = RunInShell("saft check - <&-");
  EXPECT_EQ(closed.code, 2);
  EXPECT_EQ(closed.err, "saft: -: standard input is closed.\n");
}

TEST_F(CheckCommandTest, WithoutRoomForACopyAPipeIsNotJudged) {
  const testing::Outcome outcome =
      RunInShell("cat '" + WriteBad() + "' | TMPDIR=/none " SAFT_PROGRAM " check - --lang pt");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "-: não verificado\n");
  EXPECT_EQ(outcome.err,
            "saft: -: Não há lugar para uma cópia temporária da entrada padrão, que se lê mais de uma vez.\n");
}

TEST_F(CheckCommandTest, AnUnknownRuleOrSeverityIsAnErrorWithTheNearest) {
  ExpectRefused({"--severity", "NIF-CHEK=off"}, "the rule \"NIF-CHEK\" is not known; did you mean NIF-CHECK?");
  ExpectRefused({"--severity", "nif-check=off"}, "the rule \"nif-check\" is not known; did you mean NIF-CHECK?");
  ExpectRefused({"--severity", "NIF-CHECK=of"},
                "the severity of NIF-CHECK is error, warning, information or off, not \"of\"; did you mean off?");
  ExpectRefused({"--severity", "NIF-CHECK"}, "--severity takes RULE=SEVERITY, not \"NIF-CHECK\"");
  ExpectRefused({"--max", "-1"}, "--max takes a whole number, 0 or more, not \"-1\"");
  ExpectRefused({"--max", "2x"}, "--max takes a whole number, 0 or more, not \"2x\"");
  ExpectRefused({"--severity", "NIF-CHEK=off", "--lang", "pt"},
                "a regra \"NIF-CHEK\" não é conhecida; queria dizer NIF-CHECK?");
}

TEST_F(CheckCommandTest, APublicKeyIsReadFromItsFile) {
  const std::string key = folder_.Write("key.pem",
                                        "-----BEGIN PUBLIC KEY-----\n"
                                        "MIGfMA0GCSqGSIb3DQEBAQUAA4GNADCBiQKBgQDCZzbyZWlQNfWmlp4llcwQqltb\n"
                                        "ej1SV5oZoXiKZyTNGjRCWPAs6Y5QKJgxXcnJi15he7XYOhr1JgZzvWR3jv33mVWk\n"
                                        "TFLN1y3MVlo4lx0e740ojpzO0vy2t+37tE/+4CzCE2GFYlBuxNMB3SEMCKW3/9fx\n"
                                        "vlzCxL9Dg8z+4v1qEwIDAQAB\n"
                                        "-----END PUBLIC KEY-----\n");
  EXPECT_EQ(Run({"check", "--public-key", key, "--public-key", key + ":2", WriteClean()}).code, 0);
  const std::string other = folder_.Write("other.pem", "x");
  ExpectRefused({"--public-key", other}, other + ": is no RSA public key in PEM");
  ExpectRefused({"--public-key", other + ":1", "--lang", "pt"}, other + ": não é uma chave pública RSA em PEM");
  ExpectRefused({"--public-key", ""}, "--public-key: names no file");
  ExpectRefused({"--public-key", ":1", "--lang", "pt"}, "--public-key: não indica nenhum ficheiro");
  ExpectRefused({"--public-key", key + ":x"}, key + ":x: There is no such file");
  ExpectRefused({"--public-key", folder_.Path("data")}, folder_.Path("data") + ": is a folder");
}

TEST_F(CheckCommandTest, AnotherSchemaMayBeNamed) {
  const std::string schema = folder_.Write("own.xsd", testing::ReadBytes(ZEVO_SCHEMA));
  EXPECT_EQ(Run({"check", WriteClean(), "--schema", schema}).code, 0);
  ExpectRefused({"--schema", folder_.Path("none.xsd")}, folder_.Path("none.xsd") + ": no such file");
  const std::string text = folder_.Write("text.xsd", "x");
  ExpectRefused({"--schema", text},
                text + ": The file has no element where its first one should begin (line 1, column 1).");
}

TEST_F(CheckCommandTest, WhatAFileHoldsIsMadeVisible) {
  const std::string file =
      folder_.Write("bad\x1B.xml",
                    "<?xml version='1.0'?>\n<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><Header>"
                    "<CompanyID>\u202Ex\u009B</CompanyID></Header></AuditFile>");
  const testing::Outcome outcome = Run({"check", file});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_THAT(outcome.out, AllOf(Not(HasSubstr("\u202E")), Not(HasSubstr("\u009B")), Not(HasSubstr("\x1B"))));
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("\\u202E"), HasSubstr("bad\\x1B.xml: ")));
}

// What is shown on a terminal.
class CheckOnTerminalTest : public testing::ToolCheckTest {
 protected:
  /// On a terminal of so many columns; 0 where it does not tell.
  std::string Shown(const std::vector<std::string>& environment, uint16_t columns = 0) const {
    int terminal = -1;
    const winsize size{.ws_row = 25, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
    const std::string file = WriteBad();
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
      unsetenv("NO_COLOR");
      for (const std::string& each : environment) putenv(const_cast<char*>(each.c_str()));
      execl(SAFT_PROGRAM, "saft", "check", file.c_str(), nullptr);
      _exit(127);
    }
    EXPECT_GT(child, 0);
    std::string shown;
    char bytes[4096];
    for (ssize_t got = read(terminal, bytes, sizeof bytes); got > 0; got = read(terminal, bytes, sizeof bytes)) {
      shown.append(bytes, static_cast<size_t>(got));
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    close(terminal);
    EXPECT_EQ(WEXITSTATUS(status), 1);
    return shown;
  }
};

TEST_F(CheckOnTerminalTest, SeveritiesHaveColours) {
  const std::string shown = Shown({});
  EXPECT_THAT(shown, StartsWith("\x1B[31merror\x1B[0m GL-RECORD: "));
  EXPECT_THAT(shown, HasSubstr("\n\x1B[33mwarning\x1B[0m HDR-PERIOD: "));
  EXPECT_THAT(shown, HasSubstr("\n  \x1B[36mnote\x1B[0m: Header: "));
  EXPECT_THAT(shown, HasSubstr("bad.xml: \x1B[31m2 errors, 1 warning, 1 note (3 documents, 3 transactions)\x1B[0m"));
}

TEST_F(CheckOnTerminalTest, LinesAreBrokenBetweenWords) {
  const std::string shown = Shown({}, 80);
  EXPECT_THAT(shown,
              HasSubstr("\r\n  Header: the fiscal year is 2011 and should be 2008, in which the period\r\n"
                        "    begins. [" +
                        Place("<FiscalYear>") +
                        "]\r\n"
                        "  \x1B[36mnote\x1B[0m: Header: the file was created on 2008-12-30, before the end of its\r\n"
                        "    period, on 2008-12-31. [" +
                        Place("<DateCreated>") + "]\r\n"));
}

TEST_F(CheckOnTerminalTest, WithoutColourWhereTheEnvironmentSaysSo) {
  EXPECT_THAT(Shown({"NO_COLOR=1"}), Not(HasSubstr("\x1B")));
  EXPECT_THAT(Shown({"NO_COLOR="}), HasSubstr("\x1B[31m"));
}

}  // namespace
}  // namespace zevo
