// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/ColumnsCommand.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "tools/saft/columns/ColumnFacts.h"
#include "tools/saft/columns/Meanings.h"
#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/terminal/Table.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

// The language of what is told here.
constexpr Language kLanguage = Language::kEnglish;

// All kinds that a dataset has, or the one of a name or a file.
std::vector<const RecordKind*> KindsNamed(std::string_view name) {
  std::vector<const RecordKind*> kinds;
  std::vector<std::string_view> names;
  for (const RecordKind& kind : RecordKinds()) {
    if (kind.file.empty()) continue;
    names.insert(names.end(), {kind.name, kind.file});
    if (name.empty() || name == kind.name || name == kind.file) kinds.push_back(&kind);
  }
  if (!kinds.empty()) return kinds;
  throw Failure("no kind of record and no file of a dataset is named " + Quoted(name) + "; the nearest name is " +
                std::string(NearestName(name, names)));
}

std::string RequiredText(const ColumnFacts& column) {
  switch (column.needed) {
    case Needed::kYes:
      return "yes";
    case Needed::kNo:
      return "no";
    case Needed::kOr:
      return "or " + column.partner;
    case Needed::kWith:
      return "with " + column.group;
  }
  return {};
}

Json TextOrNull(std::string_view text) { return text.empty() ? Json() : Json(text); }

void PrintJson(const RecordKind& kind, const std::vector<ColumnFacts>& columns) {
  for (const ColumnFacts& column : columns) {
    const Meaning* const meaning = MeaningOf(kind.name, column.name);
    const Json json{
        {"file", kind.file},
        {"kind", kind.name},
        {"column", column.name},
        {"required", RequiredText(column)},
        {"partner", TextOrNull(column.partner)},
        {"type", column.type},
        {"max_length", column.max_length ? Json(*column.max_length) : Json()},
        {"least", TextOrNull(column.least)},
        {"greatest", TextOrNull(column.greatest)},
        {"codes", column.codes},
        {"pattern", TextOrNull(column.pattern)},
        {"example", column.pattern.empty() || meaning == nullptr ? Json() : TextOrNull(meaning->example)},
        {"preset", TextOrNull(column.preset)},
        {"meaning", meaning == nullptr ? Json() : Json(meaning->In(kLanguage))},
    };
    std::cout << json.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
  }
}

// As many as are read at a glance, and how many there are.
std::string CodesText(const std::vector<std::string>& codes) {
  constexpr size_t kAll = 15;
  constexpr size_t kSome = 3;
  const bool all = codes.size() <= kAll;
  std::string text;
  for (size_t i = 0; i < (all ? codes.size() : kSome); ++i) text.append(i == 0 ? "" : ", ").append(codes[i]);
  return all ? text : text + ", ... (" + std::to_string(codes.size()) + ")";
}

// The meaning, and what else there is to say of the value.
std::string MeaningText(const ColumnFacts& column, const Meaning* meaning) {
  std::string text(meaning == nullptr ? std::string_view() : meaning->In(kLanguage));
  const auto add = [&](std::string_view what, const std::string& value) {
    text.append(text.empty() ? "" : " ").append(what).append(value) += '.';
  };
  if (!column.codes.empty() && column.codes != std::vector{column.preset}) add("Codes: ", CodesText(column.codes));
  if (column.needed != Needed::kOr && !column.partner.empty()) add("Not beside ", column.partner);
  if (!column.pattern.empty() && meaning != nullptr && std::ranges::count(column.codes, meaning->example) == 0) {
    add(column.codes.empty() ? "Such as " : "Or such as ", std::string(meaning->example));
  }
  if (column.type != "flag" && !column.least.empty()) add("", column.least + " to " + column.greatest);
  if (!column.preset.empty() && column.type != "amount" && column.type != "flag") add("If empty: ", column.preset);
  return text;
}

void PrintTable(const RecordKind& kind, const std::vector<ColumnFacts>& columns) {
  Table table(5);
  table.Add({"Column", "Required", "Type", "Length", "Meaning"});
  for (const ColumnFacts& column : columns) {
    table.Add({column.name, RequiredText(column), std::string(column.type),
               column.max_length ? std::to_string(*column.max_length) : "",
               MeaningText(column, MeaningOf(kind.name, column.name))});
  }
  std::cout << kind.file << " (" << kind.name << ")\n";
  table.Print(std::cout);
}

SchemaFacts FactsOfSchema() {
  try {
    return SchemaFacts();
  } catch (const Error& error) {
    AuditException told;
    told.set_Number(error.Number());
    told.set_Source(error.Source());
    told.set_Description(error.Description());
    SchemaChoice::Fail(told);
  }
}

}  // namespace

ColumnsCommand::ColumnsCommand(CLI::App& options) : schema_(options) {
  options.add_option("KIND", kind_, "Class of records or file of a dataset, such as Customer or customers.csv")
      ->option_text(" ");
  options.add_flag("--json", json_, "Write a JSON object a line instead of tables")->option_text(" ");
  options.footer(
      R"(Tells the columns that a dataset for "saft create" may have, in the order of the audit file; without KIND those of all
files. "saft template" writes the files with these columns.

Required is a column without which "saft create" makes no valid file. The rest comes by itself or may be absent:

  yes     in every row
  no      nothing is needed
  or X    this column or X, not both; without either the file has a 0
  with X  in a row where another column of X is filled

The length is the greatest one in characters; longer texts are shortened or make the file invalid. A column of type "code"
takes the codes only, a text with codes takes these and texts like the example.

With --json each line is an object with these members. All values are texts, but for the length, a number, and the list of
codes; null stands for what there is not:

  file        of the dataset, such as customers.csv
  kind        of record, such as Customer
  column      such as BillingAddress.City
  required    yes, no, "or COLUMN" or "with GROUP", as above
  partner     the other column of two of which the file holds one
  type        text, date (2010-01-31), date and time (2010-01-31T09:30:00), amount, whole number, flag (0 or 1) or code
  max_length  greatest length in characters
  least       least value
  greatest    greatest value
  codes       all codes, in a list that may be empty
  pattern     what a text that is no code must match, a regular expression of XML Schema
  example     a text that matches the pattern
  preset      what the file has where the cell is empty
  meaning     a sentence)");
}

ExitCode ColumnsCommand::Run() const {
  const std::vector<const RecordKind*> kinds = KindsNamed(kind_);
  schema_.Use();
  schema_.RequireUsable();
  const SchemaFacts schema = FactsOfSchema();
  for (const RecordKind* kind : kinds) {
    const std::vector<ColumnFacts> columns = FactsOf(*kind, schema);
    if (json_) {
      PrintJson(*kind, columns);
      continue;
    }
    if (kind != kinds.front()) std::cout << '\n';
    PrintTable(*kind, columns);
  }
  return kDone;
}

}  // namespace zevo::saft
