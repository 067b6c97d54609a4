// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MasterRecords.h"

#include <algorithm>

#include "tools/saft/merge/MergedElements.h"

namespace zevo::saft {
namespace {

bool IsOpeningBalance(const ScannedElement& element) {
  return element.depth == 1 && (element.name == merged::kOpeningDebit || element.name == merged::kOpeningCredit);
}

// The way to an element from the record's own.
std::string PathOfElement(std::span<const ScannedElement> elements, size_t element) {
  std::string path(elements[element].name);
  for (int depth = elements[element].depth; element > 0 && depth > 1; --element) {
    if (elements[element - 1].depth != depth - 1) continue;
    path.insert(0, "/").insert(0, elements[element - 1].name);
    --depth;
  }
  return path;
}

std::vector<uint32_t> HashesOf(std::span<const ScannedElement> elements) {
  std::vector<uint32_t> hashes;
  hashes.reserve(elements.size());
  std::string text;
  for (const ScannedElement& element : elements) {
    text.assign(element.name).append("\n").append(std::to_string(element.depth)).append("\n").append(element.text);
    hashes.push_back(IsOpeningBalance(element) ? 0 : static_cast<uint32_t>(TextHash()(text)));
  }
  return hashes;
}

}  // namespace

std::optional<MasterRecords::Difference> MasterRecords::Take(size_t source, std::string_view key,
                                                             std::span<const ScannedElement> elements) {
  const std::vector<uint32_t> hashes = HashesOf(elements);
  const auto file = static_cast<uint32_t>(source);
  const auto count = static_cast<uint32_t>(hashes.size());
  const auto number = keys_.Add(key, static_cast<uint32_t>(known_.size()) + 1);
  if (!number) {
    known_.push_back({file, count, hashes_.size(), kNoOpening});
    hashes_.insert(hashes_.end(), hashes.begin(), hashes.end());
    OpeningBalances opening;
    for (const ScannedElement& element : elements) {
      if (!IsOpeningBalance(element)) continue;
      (element.name == merged::kOpeningDebit ? opening.debit : opening.credit) = element.text;
    }
    if (opening.debit || opening.credit) {
      known_.back().opening = static_cast<uint32_t>(openings_.size());
      openings_.push_back(std::move(opening));
    }
    return std::nullopt;
  }
  Known& known = known_[*number - 1];
  const std::span before(hashes_.data() + known.first, known.count);
  const auto differing = static_cast<size_t>(std::ranges::mismatch(hashes, before).in1 - hashes.begin());
  std::optional<Difference> difference;
  if (known.source != file && !std::ranges::equal(hashes, before)) {
    // Where elements lack at the end, the last that is there.
    difference = {known.source, PathOfElement(elements, std::min(differing, elements.size() - 1))};
  }
  known.source = file;
  if (count > known.count) {
    known.first = hashes_.size();
    hashes_.insert(hashes_.end(), hashes.begin(), hashes.end());
  } else {
    std::ranges::copy(hashes, hashes_.begin() + static_cast<std::ptrdiff_t>(known.first));
  }
  known.count = count;
  return difference;
}

bool MasterRecords::IsLast(size_t source, std::string_view key) const {
  const auto number = keys_.Find(key);
  return number && known_[*number - 1].source == source;
}

const OpeningBalances& MasterRecords::OpeningOf(std::string_view account) const {
  static const OpeningBalances kNone;
  const auto number = keys_.Find(account);
  const uint32_t opening = number ? known_[*number - 1].opening : kNoOpening;
  return opening == kNoOpening ? kNone : openings_[opening];
}

}  // namespace zevo::saft
