// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/Errors.h"

#include "tools/saft/errors/Failure.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/DatasetWords.h"

namespace zevo::saft {

void Errors::Count(const RowPlace& place, std::string_view column) {
  ++counts_[place.file];
  if (!column.empty() && KnowsAll()) cells_.emplace(place, column);
}

void Errors::AddToFile(size_t file, std::string_view reason) {
  Add({file, 0}, {}, Failure(files_[file], reason).what());
}

bool Errors::IsTold(const RowPlace& place, std::string_view column) const {
  const auto isKnown = [&](const RowPlace& at) { return cells_.contains(std::pair(at, std::string(column))); };
  return isKnown(place) || isKnown({place.file, 0});
}

void Errors::Report(std::ostream& out) const {
  std::vector<size_t> untold = counts_;
  for (const auto& [place, message] : first_.First()) {
    out << "saft: " << message << '\n';
    --untold[place.file];
  }
  for (size_t file = 0; file < untold.size(); ++file) {
    if (untold[file] == 0) continue;
    const std::string more = SayOf(untold[file], words::kOneMoreError, words::kMoreErrors);
    out << "saft: " << (file < files_.size() ? Visible(files_[file]) + ": " : "") << more << '\n';
  }
}

}  // namespace zevo::saft
