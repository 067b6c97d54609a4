// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RowReader.h"

#include <algorithm>
#include <cstdint>

#include "tools/saft/input/ScannedElements.h"

namespace zevo::saft {

const ListedElement* ListedElements::Find(std::string_view name) {
  for (size_t tried = 0; tried < listed_.size(); ++tried) {
    if (expected_ == listed_.size()) expected_ = 0;
    const ListedElement& listed = listed_[expected_++];
    if (listed.name == name) return &listed;
  }
  return nullptr;
}

RowReader::RowReader(const RecordKind& kind, const RecordColumns& columns)
    : kind_(kind), columns_(columns), cells_(columns.Columns().size()) {}

void RowReader::Read(const AuditFileScanner& scanner, const Taker& take) {
  elements_ = scanner.Elements();
  std::ranges::fill(cells_, std::nullopt);
  if (!kind_.path.empty()) return ReadInside(0, kind_.path, 0, take);
  // The only entities with an identifier of something else are those in a journal.
  if (kind_.Parents() > 0) cells_[0] = Trimmed(scanner.JournalID());
  Take(0, take);
}

void RowReader::ReadInside(size_t element, std::string_view path, size_t parent, const Taker& take) {
  const std::string_view step = path.substr(0, path.find('/'));
  path.remove_prefix(std::min(path.size(), step.size() + 1));
  if (parent < kind_.Parents()) {
    const auto found = ChildNamed(elements_, element, kind_.parents[parent]);
    cells_[parent] = found ? std::optional(Trimmed(elements_[*found].text)) : std::nullopt;
  }
  ForEachChild(elements_, element, [&](size_t child) {
    if (elements_[child].name != step) return;
    path.empty() ? Take(child, take) : ReadInside(child, path, parent + 1, take);
  });
}

void RowReader::Take(size_t element, const Taker& take) {
  std::fill(cells_.begin() + static_cast<std::ptrdiff_t>(kind_.Parents()), cells_.end(), std::nullopt);
  Fill(element, columns_.Elements());
  take({cells_, elements_, element});
}

void RowReader::Fill(size_t element, std::span<const ListedElement> children) {
  ListedElements listed(children);
  uint64_t seen = 0;
  ForEachChild(elements_, element, [&](size_t child) {
    const ListedElement* const found = listed.Find(elements_[child].name);
    if (found == nullptr || found->is == ListedElement::kList) return;
    const uint64_t bit = uint64_t{1} << (found - children.data());
    if ((seen & bit) != 0) return;
    seen |= bit;
    if (found->is == ListedElement::kRecord) return Fill(child, found->children);
    cells_[found->column] = Trimmed(elements_[child].text);
  });
}

}  // namespace zevo::saft
