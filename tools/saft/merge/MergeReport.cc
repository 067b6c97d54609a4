// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MergeReport.h"

#include <algorithm>

#include "tools/saft/words/MergeWords.h"

namespace zevo::saft {
namespace {

constexpr size_t kMostTold = 20;

}  // namespace

void MergeReport::Add(Subject subject, const std::function<std::string()>& sentence) {
  Told& told = told_[subject];
  // Of files there are no more than the user names.
  if (told.first.size() < kMostTold || subject == kFile || subject == kPeriod) {
    told.first.push_back(sentence());
  } else {
    ++told.more;
  }
}

bool MergeReport::IsRefusal() const {
  return std::ranges::any_of(told_, [](const auto& each) { return Refuses(each.first); });
}

void MergeReport::Report(std::ostream& out) const {
  const bool refused = IsRefusal();
  for (const auto& [subject, told] : told_) {
    if (refused && !Refuses(subject)) continue;
    for (const std::string& sentence : told.first) out << "saft: " << sentence << '\n';
    if (told.more == 0) continue;
    const bool documents = subject == kDocument;
    out << "saft: "
        << (documents ? SayOf(told.more, words::kOneMoreTwice, words::kMoreTwice)
                      : SayOf(told.more, words::kOneMoreDiffers, words::kMoreDiffer))
        << '\n';
  }
}

}  // namespace zevo::saft
