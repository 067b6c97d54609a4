// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryJson.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <utility>
#include <vector>

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

Json ToJson(const std::string& text) { return text; }

Json ToJson(const std::optional<int32_t>& number) { return number ? Json(*number) : Json(); }

template <class Value>
Json ToJson(const std::vector<std::pair<std::string, Value>>& values) {
  Json json = Json::object();
  for (const auto& [name, value] : values) json[name] = ToJson(value);
  return json;
}

Json ToJson(const Totals& totals) {
  return {
      {"NumberOfEntries", totals.entries}, {"TotalDebit", totals.debit.Text()}, {"TotalCredit", totals.credit.Text()}};
}

Json ToJson(const JournalFigures& journal) {
  Json json = {{"JournalID", journal.id}, {"Description", journal.description}};
  json.update(ToJson(journal.totals));
  return json;
}

Json ToJson(const InvoiceTypeFigures& type) {
  Json json = {{"InvoiceType", type.type}};
  json.update(ToJson(type.totals));
  json["TaxPayable"] = type.tax.Text();
  json["NetTotal"] = type.net.Text();
  json["GrossTotal"] = type.gross.Text();
  return json;
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
                     {"Header", OrNull(summary.header)},
                     {"Counts", ToJson(summary.counts)},
                     {"GeneralLedgerEntries", OrNull(summary.entries)},
                     {"SalesInvoices", OrNull(summary.invoices)}};
  // A file name may hold any bytes.
  return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

}  // namespace zevo::saft
