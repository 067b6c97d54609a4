// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/ColumnsCommand.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "tools/saft/columns/ColumnFacts.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/terminal/Table.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ColumnWords.h"
#include "tools/saft/words/ErrorWords.h"
#include "tools/saft/words/Meanings.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

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
  const auto meant = std::ranges::find(Dataset::Files(), name, &DatasetFile::in_portuguese);
  const std::string hint =
      meant != Dataset::Files().end() ? Say(words::kDidYouMean, meant->name) : DidYouMean(name, names);
  throw Failure(Say(words::kUnknownKindOrFile, Quoted(name)) + hint);
}

std::string RequiredText(const ColumnFacts& column) {
  switch (column.needed) {
    case Needed::kYes:
      return Say(words::kYes);
    case Needed::kNo:
      return Say(words::kNo);
    case Needed::kOr:
      return Say(words::kOr, column.partner);
    case Needed::kWith:
      return Say(words::kWith, column.group);
  }
  return {};
}

// For programs, whatever the language.
std::string RequiredForJson(const ColumnFacts& column) {
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

struct TypeRow {
  ValueType type;
  std::string_view for_json;
  Text<> text;
};
constexpr std::array kTypeRows{
    TypeRow{ValueType::kText, "text", words::kText},
    TypeRow{ValueType::kDate, "date", words::kDate},
    TypeRow{ValueType::kDateAndTime, "date and time", words::kDateAndTime},
    TypeRow{ValueType::kAmount, "amount", words::kAmount},
    TypeRow{ValueType::kWholeNumber, "whole number", words::kWholeNumber},
    TypeRow{ValueType::kFlag, "flag", words::kFlag},
    TypeRow{ValueType::kCode, "code", words::kCode},
};

const TypeRow& RowOf(ValueType type) { return *std::ranges::find(kTypeRows, type, &TypeRow::type); }

Json TextOrNull(std::string_view text) { return text.empty() ? Json() : Json(text); }

void PrintJson(const RecordKind& kind, const std::vector<ColumnFacts>& columns) {
  for (const ColumnFacts& column : columns) {
    const Meaning* const meaning = MeaningOf(kind.name, column.name);
    const Json json{
        {"file", kind.file},
        {"kind", kind.name},
        {"column", column.name},
        {"required", RequiredForJson(column)},
        {"partner", TextOrNull(column.partner)},
        {"type", RowOf(column.type).for_json},
        {"max_length", column.max_length ? Json(*column.max_length) : Json()},
        {"least", TextOrNull(column.least)},
        {"greatest", TextOrNull(column.greatest)},
        {"codes", column.codes},
        {"pattern", TextOrNull(column.pattern)},
        {"example", column.pattern.empty() || meaning == nullptr ? Json() : TextOrNull(meaning->example)},
        {"preset", TextOrNull(column.preset)},
        {"meaning", meaning == nullptr ? Json() : Json(Say(meaning->text))},
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
  std::string text = meaning == nullptr ? std::string() : Say(meaning->text);
  const auto add = [&](const std::string& sentence) { text.append(text.empty() ? "" : " ").append(sentence); };
  if (!column.codes.empty() && column.codes != std::vector{column.preset}) {
    add(Say(words::kCodes, CodesText(column.codes)));
  }
  if (column.needed != Needed::kOr && !column.partner.empty()) add(Say(words::kNotBeside, column.partner));
  if (!column.pattern.empty() && meaning != nullptr && std::ranges::count(column.codes, meaning->example) == 0) {
    add(Say(column.codes.empty() ? words::kSuchAs : words::kOrSuchAs, meaning->example));
  }
  const bool flag = column.type == ValueType::kFlag;
  if (!flag && !column.least.empty()) add(Say(words::kFromTo, column.least, column.greatest));
  if (!flag && column.type != ValueType::kAmount && !column.preset.empty()) add(Say(words::kIfEmpty, column.preset));
  return text;
}

void PrintTable(const RecordKind& kind, const std::vector<ColumnFacts>& columns) {
  Table table(5);
  table.Add({Say(words::kColumn), Say(words::kRequired), Say(words::kTypeOfColumn), Say(words::kLength),
             Say(words::kMeaning)});
  for (const ColumnFacts& column : columns) {
    table.Add({column.name, RequiredText(column), Say(RowOf(column.type).text),
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
    SchemaChoice::Fail(AsException(error));
  }
}

}  // namespace

ColumnsCommand::ColumnsCommand(CLI::App& options) : schema_(options) {
  options.add_option(Say(words::kKindArgument), kind_, Say(words::kColumnsKind))->option_text(" ");
  options.add_flag("--json", json_, Say(words::kColumnsJson))->option_text(" ");
  options.footer(Say(words::kColumnsHelp));
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
