// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/RecordList.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace zevo::saft {
namespace {

std::vector<size_t> PlacesOf(const std::vector<std::string>& names, const RecordColumns& columns) {
  std::vector<size_t> places(names.empty() ? columns.Columns().size() : names.size());
  if (names.empty()) {
    std::iota(places.begin(), places.end(), 0);
  } else {
    std::ranges::transform(names, places.begin(), [&](const std::string& name) { return columns.PlaceOf(name); });
  }
  return places;
}

}  // namespace

RecordList::RecordList(const RecordKind& kind, const ListChoice& choice, std::ostream& out)
    : columns_(kind), filter_(choice.conditions, columns_), reader_(kind, columns_) {
  const std::vector<size_t> places = PlacesOf(choice.columns, columns_);
  switch (choice.form) {
    case ListForm::kCsv:
      printer_ = std::make_unique<CsvPrinter>(columns_, places, out, CsvForm::kDataset);
      break;
    case ListForm::kSpreadsheet:
      printer_ = std::make_unique<CsvPrinter>(columns_, places, out, CsvForm::kSpreadsheet);
      break;
    case ListForm::kJson:
      printer_ = std::make_unique<JsonPrinter>(columns_, places, out);
      break;
  }
}

void RecordList::Take(const AuditFileScanner& scanner) {
  reader_.Read(scanner, [this](const Row& row) {
    if (filter_.Passes(row)) printer_->Print(row);
  });
}

}  // namespace zevo::saft
