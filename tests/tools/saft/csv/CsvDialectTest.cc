// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvDialect.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

CsvDialect Recognised(const std::string& text) {
  std::istringstream file(text);
  const CsvDialect dialect = DialectOf(file);
  EXPECT_TRUE(file.good());
  EXPECT_EQ(file.tellg(), std::streampos(0));
  return dialect;
}

char SeparatorOf(const std::string& text) { return Recognised(text).separator; }

CsvEncoding EncodingOf(const std::string& text) { return Recognised(text).encoding; }

TEST(CsvDialectTest, TheHeadingTellsTheSeparator) {
  EXPECT_EQ(SeparatorOf("A;B;C\n1,2,3\n"), ';');
  EXPECT_EQ(SeparatorOf("A,B\n1;2;3\n"), ',');
  EXPECT_EQ(SeparatorOf("A\tB\n1;2\n"), '\t');
  EXPECT_EQ(SeparatorOf("\r\n\n\xEF\n"), ',');
  EXPECT_EQ(SeparatorOf("\r\n\nA;B"), ';');
  EXPECT_EQ(SeparatorOf("\xEF\xBB\xBF"
                        "A;B"),
            ';');
}

TEST(CsvDialectTest, OfOneColumnOrNoneItIsTheComma) {
  for (const char* text : {"", "\n", "A", "A\nb;c\n", "\"A\"\n"}) EXPECT_EQ(SeparatorOf(text), ',') << text;
}

TEST(CsvDialectTest, WhatStandsInQuotationMarksSeparatesNothing) {
  EXPECT_EQ(SeparatorOf("\"A;B\",C\n"), ',');
  EXPECT_EQ(SeparatorOf("\"A,B\";C\n"), ';');
  EXPECT_EQ(SeparatorOf("\"A\"\";\"\"B\"\tC\n"), '\t');
  EXPECT_EQ(SeparatorOf("\"A;B\"\n"), ',');
}

TEST(CsvDialectTest, ALineBeforeTheHeadingMayTellIt) {
  for (const char* text : {"sep=;\nA,B\n", "sep=;\r\nA,B\r\n", "sep=;", "\xEF\xBB\xBFsep=;\nA,B\n"}) {
    EXPECT_EQ(SeparatorOf(text), ';') << text;
    EXPECT_TRUE(Recognised(text).has_separator_line) << text;
  }
  EXPECT_EQ(SeparatorOf("sep=,\nA;B\n"), ',');
  EXPECT_EQ(SeparatorOf("sep=\t\nA;B\n"), '\t');
}

TEST(CsvDialectTest, NoOtherLineDoes) {
  for (const char* text : {"sep=|\nA\n", "sep=\nA\n", "sep=;;\nA\n", "\nsep=;\nA\n", " sep=;\nA\n"}) {
    EXPECT_FALSE(Recognised(text).has_separator_line) << text;
  }
}

TEST(CsvDialectTest, TheFirstLineThatIsNotAsciiTellsTheEncoding) {
  EXPECT_EQ(EncodingOf("A,B\n1,2\n"), CsvEncoding::kUtf8);
  EXPECT_EQ(EncodingOf("A,B\n1,ã\n2,\xE3\n"), CsvEncoding::kUtf8);
  EXPECT_EQ(EncodingOf("A,B\n1,\xE3\n2,ã\n"), CsvEncoding::kWindows1252);
  EXPECT_EQ(EncodingOf("A,B\n1,ã\xE3\n"), CsvEncoding::kWindows1252);
  EXPECT_EQ(EncodingOf("A,B\n" + std::string(200000, 'a') + "\n\xE3"), CsvEncoding::kWindows1252);
}

TEST(CsvDialectTest, AByteOrderMarkTellsIt) {
  EXPECT_EQ(EncodingOf("\xEF\xBB\xBF"
                       "A,B\n1,\xE3\n"),
            CsvEncoding::kUtf8);
  EXPECT_EQ(EncodingOf("A,B\n\xEF\xBB\xBF\xE3\n"), CsvEncoding::kWindows1252);
}

TEST(CsvDialectTest, Utf16HasAMarkOrZerosInTheHeading) {
  EXPECT_EQ(EncodingOf("\xFF\xFE"), CsvEncoding::kUtf16);
  EXPECT_EQ(EncodingOf("\xFE\xFF"), CsvEncoding::kUtf16);
  EXPECT_EQ(EncodingOf(std::string("A\0;\0", 4)), CsvEncoding::kUtf16);
  EXPECT_EQ(EncodingOf(std::string("\0A\0;", 4)), CsvEncoding::kUtf16);
  EXPECT_EQ(EncodingOf(std::string("A;B\n\0;1\n", 8)), CsvEncoding::kUtf8);
}

class CsvDialectDescriptionTest : public ::testing::Test {
 protected:
  ~CsvDialectDescriptionTest() override { Speak(Language::kEnglish); }
};

TEST_F(CsvDialectDescriptionTest, TellsWhatIsOtherThanInADataset) {
  EXPECT_EQ(Description({}, false), "");
  EXPECT_EQ(Description({}, true), "dates day/month/year");
  EXPECT_EQ(Description({.separator = ','}, false), "");
  EXPECT_EQ(Description({.separator = ';'}, false), "semicolons between cells, decimal commas");
  EXPECT_EQ(Description({.separator = '\t', .encoding = CsvEncoding::kWindows1252}, true),
            "tabs between cells, decimal commas, Windows-1252, dates day/month/year");
  Speak(Language::kPortuguese);
  EXPECT_EQ(Description({.separator = ';'}, true, true),
            "ponto e vírgula entre células, vírgula decimal, datas dia/mês/ano, as células que faltam no fim de linhas "
            "são vazias");
  EXPECT_EQ(Description({.separator = '\t'}, false), "tabulações entre células, vírgula decimal");
  EXPECT_EQ(Description({.separator = ';', .encoding = CsvEncoding::kWindows1252}, true),
            "ponto e vírgula entre células, vírgula decimal, Windows-1252, datas dia/mês/ano");
}

}  // namespace
}  // namespace zevo::saft
