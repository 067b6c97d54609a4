// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/UnplacedDocuments.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace zevo {
namespace {

auto OrderOf(const DocumentTable::Copy& copy) { return std::pair(copy.document, copy.entry); }

// Of sorted things.
template <class T>
size_t CountFrom(const std::vector<T>& things, const T& from, const T& to) {
  return static_cast<size_t>(std::ranges::upper_bound(things, to) - std::ranges::lower_bound(things, from));
}

}  // namespace

UnplacedDocuments::UnplacedDocuments(const DocumentTable& documents)
    : documents_(documents), copies_(documents.Copies()), unnumbered_(documents.Unnumbered()) {
  std::ranges::sort(unnumbered_);
  std::ranges::sort(copies_, {}, OrderOf);
  const size_t repeats = copies_.size();
  for (size_t i = 0; i < repeats; ++i) {
    const uint32_t document = copies_[i].document;
    if (i == 0 || copies_[i - 1].document != document) {
      copies_.push_back({document, documents[document].EntryOrder()});
    }
  }
  std::ranges::sort(copies_, {}, OrderOf);
  for (const Copy& copy : copies_) entries_.emplace_back(documents[copy.document].Series(), copy.entry);
  std::ranges::sort(entries_);
}

std::span<const UnplacedDocuments::Copy> UnplacedDocuments::CopiesOf(uint32_t document) const {
  const auto from = std::ranges::lower_bound(copies_, document, {}, &Copy::document);
  return {from, std::ranges::upper_bound(from, copies_.end(), document, {}, &Copy::document)};
}

size_t UnplacedDocuments::Between(uint32_t lower, uint32_t higher) const {
  if (copies_.empty() && unnumbered_.empty()) return 0;
  const auto of_lower = CopiesOf(lower);
  const auto of_higher = CopiesOf(higher);
  uint64_t from = of_lower.empty() ? documents_[lower].EntryOrder() : of_lower.front().entry;
  uint64_t to = of_higher.empty() ? documents_[higher].EntryOrder() : of_higher.back().entry;
  if (to == 0) to = std::numeric_limits<uint64_t>::max();
  if (to < from) std::swap(from, to);
  // Those that nobody knows of are 0.
  from = std::max<uint64_t>(from, 1);
  const uint32_t series = documents_[lower].Series();
  size_t between = CountFrom<uint64_t>(unnumbered_, 0, 0) + CountFrom<uint64_t>(unnumbered_, from, to) +
                   CountFrom<Entry>(entries_, {series, 0}, {series, 0}) +
                   CountFrom<Entry>(entries_, {series, from}, {series, to});
  // Of those that repeat one of the two, all but one may be meant, whenever that was.
  for (const auto copies : {of_lower, of_higher}) {
    if (copies.empty()) continue;
    const auto counted = std::ranges::count_if(
        copies, [&](const Copy& copy) { return copy.entry == 0 || (from <= copy.entry && copy.entry <= to); });
    between += copies.size() - 1;
    between -= static_cast<size_t>(counted);
  }
  return between;
}

}  // namespace zevo
