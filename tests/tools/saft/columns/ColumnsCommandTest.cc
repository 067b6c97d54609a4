// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/ColumnsCommand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo::saft {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using Json = nlohmann::json;

std::string Text(const Json& column, const char* member) { return column[member].get<std::string>(); }

// A value as the help page has them, that a column takes: of the greatest length, with the first of its codes. `row`
// makes texts differ.
std::string ValueFor(const Json& column, size_t row) {
  const std::string type = column["type"];
  if (type == "date") return "2010-01-31";
  if (type == "date and time") return "2010-01-31T09:30:00";
  if (type == "amount" || type == "flag") return "1";
  if (type == "whole number") return column["least"].is_null() ? "1" : Text(column, "least");
  if (type == "code") return column["codes"][0];
  if (!column["example"].is_null()) return column["example"];
  std::string text(column["max_length"].is_null() ? 1 : column["max_length"].get<size_t>(), 'x');
  if (row > 0) text.back() = static_cast<char>('0' + row);
  return text;
}

class ColumnsCommandTest : public testing::ToolTest {
 protected:
  // Whether a row of a dataset has a value for a column.
  using Filled = std::function<bool(const Json& column)>;

  ColumnsCommandTest() {
    std::filesystem::remove(In("header.csv"));
    EXPECT_EQ(Run({"template", folder_.Path(std::string(kDataset))}).code, 0);
    std::istringstream lines(Run({"columns", "--json"}).out);
    for (std::string line; std::getline(lines, line);) columns_.push_back(Json::parse(line));
    EXPECT_GT(columns_.size(), 100U);
  }

  static bool IsRequired(const Json& column) { return column["required"] == "yes"; }
  // Whether it is the column of a pair that a row has.
  bool IsOfPair(const Json& column, size_t row) const {
    if (column["partner"].is_null()) return false;
    const auto at = [&](const Json& name) {
      return std::ranges::find_if(
          columns_, [&](const Json& each) { return each["file"] == column["file"] && each["column"] == name; });
    };
    return (at(column["column"]) < at(column["partner"])) == (row == 0);
  }
  static bool MayBeEither(const Json& column) { return Text(column, "required").starts_with("or "); }
  // Whether it is in a group that may be absent.
  bool IsInGroup(const Json& column) const { return !GroupOf(column).empty(); }
  std::string GroupOf(const Json& column) const {
    std::string group;
    for (const Json& each : columns_) {
      const std::string required = each["required"];
      if (each["file"] != column["file"] || !required.starts_with("with ")) continue;
      if (Text(column, "column").starts_with(required.substr(5) + ".")) group = required.substr(5);
    }
    return group;
  }

  // Fills the files of the template, and of pairs that are required one column, in the first row the first. A column
  // that is left out is not in its file. Lines of transactions are two, which balance.
  void Fill(const Filled& filled, const Json* left_out = nullptr) const {
    for (const std::string& file : Files()) {
      const bool two = file == "transaction_lines.csv";
      std::string heading;
      std::string rows[2];
      for (const Json& column : columns_) {
        if (column["file"] != file || (left_out != nullptr && column == *left_out)) continue;
        heading += (heading.empty() ? "" : ",") + Text(column, "column");
        for (size_t row = 0; row < 2; ++row) {
          const bool wanted = filled(column) || (MayBeEither(column) && IsOfPair(column, row) && !IsInGroup(column));
          rows[row] += "," + (wanted ? ValueFor(column, row) : "");
        }
      }
      Write(file, heading + "\n" + rows[0].substr(1) + "\n" + (two ? rows[1].substr(1) + "\n" : ""));
    }
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> files;
    for (const Json& column : columns_) {
      if (files.empty() || files.back() != column["file"]) files.push_back(column["file"]);
    }
    return files;
  }

  void ExpectValid() const {
    ExpectCreated();
    const testing::Outcome outcome = Run({"validate", Output()});
    EXPECT_EQ(outcome.code, 0) << outcome.out << outcome.err;
  }
  // Whether the dataset is refused or its file is not valid.
  bool IsNoValidFile() const {
    std::filesystem::remove(Output());
    return Create().code != 0 || Run({"validate", Output()}).code != 0;
  }

  std::vector<Json> columns_;
};

TEST_F(ColumnsCommandTest, TheColumnsAreThoseOfTheTemplate) {
  for (const std::string& file : Files()) {
    std::string heading;
    for (const Json& column : columns_) {
      if (column["file"] == file) heading += (heading.empty() ? "" : ",") + Text(column, "column");
    }
    EXPECT_EQ(testing::ReadBytes(In(file)), heading + "\n");
  }
}

TEST_F(ColumnsCommandTest, WhatIsRequiredMakesAValidFile) {
  Fill(&IsRequired);
  ExpectValid();
  for (const char* element : {"Header", "GeneralLedger", "Customer", "Supplier", "Product", "TaxTableEntry", "Journal",
                              "Transaction", "Invoice", "LineNumber", "DocumentTotals", "OrderReferences"}) {
    EXPECT_TRUE(Has(element)) << element;
  }
  EXPECT_THAT(Texts("TotalDebit"), ::testing::Contains("1.00"));
  EXPECT_THAT(Texts("TotalCredit"), ::testing::Contains("1.00"));
}

TEST_F(ColumnsCommandTest, WithoutARequiredColumnThereIsNoValidFile) {
  size_t required = 0;
  for (const Json& column : columns_) {
    if (!IsRequired(column)) continue;
    ++required;
    Fill(&IsRequired, &column);
    EXPECT_TRUE(IsNoValidFile()) << column["file"] << " " << column["column"];
  }
  EXPECT_GT(required, 50U);
}

TEST_F(ColumnsCommandTest, AGroupNeedsItsColumnsWithIt) {
  size_t needed = 0;
  for (const Json& column : columns_) {
    const std::string group = GroupOf(column);
    if (group.empty() || column["required"] != "with " + group) continue;
    ++needed;
    const Filled with_group = [&](const Json& each) {
      return IsRequired(each) || (each["file"] == column["file"] && GroupOf(each) == group &&
                                  (IsOfPair(each, 0) || each["partner"].is_null()));
    };
    Fill(with_group, &column);
    EXPECT_TRUE(IsNoValidFile()) << column["file"] << " " << column["column"];
  }
  EXPECT_GT(needed, 10U);
}

TEST_F(ColumnsCommandTest, AGroupNeedsNothingElse) {
  std::set<std::string> groups;
  for (const Json& column : columns_) {
    const std::string group = GroupOf(column);
    if (!groups.insert(Text(column, "file") + group).second || group.empty()) continue;
    // The columns that the group requires, and the first of it.
    Fill([&](const Json& each) {
      return IsRequired(each) || each == column ||
             (each["file"] == column["file"] && each["required"] == "with " + group);
    });
    std::filesystem::remove(Output());
    ExpectValid();
  }
}

TEST_F(ColumnsCommandTest, EveryColumnTakesWhatItsFactsSay) {
  Fill([&](const Json& column) {
    return column["partner"].is_null() || ((IsInGroup(column) || !MayBeEither(column)) && IsOfPair(column, 0));
  });
  ExpectValid();
}

TEST_F(ColumnsCommandTest, ALongerTextIsToldOrNotValid) {
  size_t limited = 0;
  for (const Json& column : columns_) {
    if (column["type"] != "text" || column["max_length"].is_null() || !IsRequired(column)) continue;
    ++limited;
    Fill(&IsRequired);
    const std::string bytes = testing::ReadBytes(In(Text(column, "file")));
    const std::string longer(column["max_length"].get<size_t>() + 1, '1');
    // In the place of the value, wherever that stands in its row.
    const std::string heading = bytes.substr(0, bytes.find('\n'));
    std::istringstream names(heading);
    std::istringstream cells(
        bytes.substr(heading.size() + 1, bytes.find('\n', heading.size() + 1) - heading.size() - 1));
    std::string row;
    for (std::string name, cell; std::getline(names, name, ',');) {
      cell.clear();
      std::getline(cells, cell, ',');
      row += "," + (name == column["column"] ? longer : cell);
    }
    Write(Text(column, "file"), heading + "\n" + row.substr(1) + "\n");
    std::filesystem::remove(Output());
    const testing::Outcome created = Create();
    EXPECT_TRUE(created.code != 0 || !created.err.empty() || Run({"validate", Output()}).code != 0)
        << column["file"] << " " << column["column"];
  }
  EXPECT_GT(limited, 20U);
}

TEST_F(ColumnsCommandTest, TheMembersAreThoseOfTheHelpPage) {
  const std::string help = Run({"columns", "--help"}).out;
  size_t members = 0;
  for (const auto& [name, value] : columns_.front().items()) {
    EXPECT_THAT(help, HasSubstr("\n  " + name + " ")) << name;
    ++members;
  }
  EXPECT_EQ(members, 14U);
}

TEST_F(ColumnsCommandTest, AColumnIsToldInOneLine) {
  const std::string out = Run({"columns", "products.csv", "--json"}).out;
  EXPECT_EQ(
      out.substr(0, out.find('\n')),
      R"({"file":"products.csv","kind":"Product","column":"ProductType","required":"yes","partner":null,"type":"code",)"
      R"("max_length":null,"least":null,"greatest":null,"codes":["P","S","O","I"],"pattern":null,)"
      R"("example":null,"preset":null,"meaning":"P goods, S services, O other charges, I taxes."})");
}

TEST_F(ColumnsCommandTest, AKindIsToldAsATable) {
  const testing::Outcome outcome = Run({"columns", "Journal"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out,
            "journals.csv (Journal)\n"
            "  Column       Required  Type  Length  Meaning\n"
            "  JournalID    yes       text  30      Code of the journal, each its own.\n"
            "  Description  yes       text  60      Name of the journal.\n");
  EXPECT_EQ(Run({"columns", "journals.csv"}).out, outcome.out);
}

TEST_F(ColumnsCommandTest, ATableTellsExamplesRangesAndSomeOfManyCodes) {
  const std::string out = Run({"columns"}).out;
  EXPECT_THAT(out, StartsWith("header.csv (Header)\n"));
  EXPECT_THAT(out, HasSubstr("\n\ncredit_notes.csv (CreditNote)\n"));
  EXPECT_THAT(out, HasSubstr("Country of the address. Codes: AD, AE, AF, ... (247). If empty: PT.\n"));
  EXPECT_THAT(out, HasSubstr("Country of the address. If empty: PT.\n"));
  EXPECT_THAT(out, HasSubstr("Codes: Desconhecido. Or such as 2111.\n"));
  EXPECT_THAT(out, HasSubstr("Such as FT A/1.\n"));
  EXPECT_THAT(out, HasSubstr(" 1 to 16.\n"));
  EXPECT_THAT(out, HasSubstr("Not beside DocumentTotals.CurrencyValue.CurrencyDebitAmount.\n"));
}

TEST_F(ColumnsCommandTest, AnotherNameIsToldWithTheNearest) {
  const testing::Outcome outcome = Run({"columns", "customer.csv"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "saft: no kind of record and no file is named \"customer.csv\"; did you mean customers.csv?\n");
}

TEST_F(ColumnsCommandTest, APortugueseNameLeadsToItsFile) {
  EXPECT_EQ(Run({"columns", "clientes.csv"}).err,
            "saft: no kind of record and no file is named \"clientes.csv\"; did you mean customers.csv?\n");
  EXPECT_EQ(Run({"columns", "--lang", "pt", "linhas_faturas.csv"}).err,
            "saft: nem um tipo de registo nem um ficheiro se chama \"linhas_faturas.csv\"; queria dizer "
            "invoice_lines.csv?\n");
}

TEST_F(ColumnsCommandTest, ASectionHasNoColumns) { EXPECT_EQ(Run({"columns", "SalesInvoices"}).code, 2); }

TEST_F(ColumnsCommandTest, AnotherSchemaHasOtherLengths) {
  std::string schema = testing::ReadBytes(ZEVO_SCHEMA_FILE);
  const std::string limit = "<xs:maxLength value=\"60\"/>";
  for (size_t at = 0; (at = schema.find(limit, at)) != std::string::npos; ++at) schema.replace(at + 21, 2, "59");
  folder_.Write("other.xsd", schema);
  EXPECT_THAT(Run({"columns", "Journal", "--schema", folder_.Path("other.xsd")}).out,
              HasSubstr("  Description  yes       text  59 "));
}

TEST_F(ColumnsCommandTest, ASchemaThatIsNoneIsAnError) {
  folder_.Write("none.xsd", "<xs:schema");
  const testing::Outcome outcome = Run({"columns", "--schema", folder_.Path("none.xsd")});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, StartsWith("saft: " + folder_.Path("none.xsd") + ": "));
}

}  // namespace
}  // namespace zevo::saft
