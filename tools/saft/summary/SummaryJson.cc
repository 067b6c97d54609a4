// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryJson.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

Json ToJson(const std::optional<std::string>& text) { return text ? Json(*text) : Json(); }

template <class Value>
Json ToJson(const std::vector<std::pair<std::string, Value>>& values) {
  Json json = Json::object();
  for (const auto& [name, value] : values) json[name] = value;
  return json;
}

// A sum as a member of a name, and among the members of "Unreadable" where it lacks amounts.
void AddSum(const char* name, const Sum& sum, Json& json, Json& unreadable) {
  json[name] = sum.value.Text();
  if (sum.unreadable > 0) unreadable[name] = sum.unreadable;
}

Json WithUnreadable(Json json, Json unreadable) {
  if (!unreadable.empty()) json["Unreadable"] = std::move(unreadable);
  return json;
}

// The number that a total is, as sums are told, or whatever text it is.
void AddTotal(const char* name, const std::optional<std::string>& total, Json& json, Json& unreadable) {
  const std::optional<Decimal> number = total ? Decimal::FromText(*total) : std::nullopt;
  json[name] = number ? Json(number->Text()) : ToJson(total);
  if (total && !number) unreadable[name] = 1;
}

Json ToJson(const TotalsInFile& totals) {
  Json json = Json::object();
  Json unreadable = Json::object();
  AddTotal("NumberOfEntries", totals.entries, json, unreadable);
  AddTotal("TotalDebit", totals.debit, json, unreadable);
  AddTotal("TotalCredit", totals.credit, json, unreadable);
  return WithUnreadable(std::move(json), std::move(unreadable));
}

void AddSums(const EntrySums& sums, Json& json, Json& unreadable) {
  json["NumberOfEntries"] = sums.entries;
  AddSum("TotalDebit", sums.debit, json, unreadable);
  AddSum("TotalCredit", sums.credit, json, unreadable);
}

Json ToJson(const EntrySums& sums) {
  Json json = Json::object();
  Json unreadable = Json::object();
  AddSums(sums, json, unreadable);
  return WithUnreadable(std::move(json), std::move(unreadable));
}

Json ToJson(const JournalFigures& journal) {
  Json json = {{"JournalID", journal.id}, {"Description", journal.description}};
  json.update(ToJson(journal.sums));
  return json;
}

Json ToJson(const InvoiceTypeFigures& type) {
  Json json = {{"InvoiceType", type.type}};
  Json unreadable = Json::object();
  AddSums(type.sums, json, unreadable);
  AddSum("TaxPayable", type.tax, json, unreadable);
  AddSum("NetTotal", type.net, json, unreadable);
  AddSum("GrossTotal", type.gross, json, unreadable);
  return WithUnreadable(std::move(json), std::move(unreadable));
}

template <class Figures>
Json ListOf(const std::vector<Figures>& all) {
  Json json = Json::array();
  for (const Figures& figures : all) json.push_back(ToJson(figures));
  return json;
}

Json ToJson(const EntriesFigures& entries) {
  return {{"InFile", ToJson(entries.in_file)},
          {"AsSummed", ToJson(entries.as_summed)},
          {"Journals", ListOf(entries.journals)}};
}

Json ToJson(const InvoicesFigures& invoices) {
  return {{"InFile", ToJson(invoices.in_file)},
          {"AsSummed", ToJson(invoices.as_summed)},
          {"LeftOut", ToJson(invoices.left_out)},
          {"InvoiceTypes", ListOf(invoices.types)}};
}

template <class Part>
Json OrNull(const std::optional<Part>& part) {
  return part ? ToJson(*part) : Json();
}

}  // namespace

std::string JsonOf(const Summary& summary) {
  const Json json = {{"File", summary.file},
                     {"Version", ToJson(summary.version)},
                     {"Header", OrNull(summary.header)},
                     {"Counts", ToJson(summary.counts)},
                     {"GeneralLedgerEntries", OrNull(summary.entries)},
                     {"SalesInvoices", OrNull(summary.invoices)},
                     {"Problems", {{"Count", summary.problems}, {"First", summary.first_problems}}}};
  // A file name may hold any bytes.
  return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

}  // namespace zevo::saft
