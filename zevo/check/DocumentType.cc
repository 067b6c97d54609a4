// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentType.h>

#include <algorithm>
#include <iterator>

namespace zevo {
namespace {

constexpr CalendarDate kLastOfOldTypes{2012, 12, 31};
constexpr CalendarDate kFirstOfNewTypes{2013, 1, 1};

// Those that files have most of first.
constexpr DocumentType kTypesByUse[] = {
    {.code = "FT"},
    {.code = "FS", .first = kFirstOfNewTypes, .may_be_summarised = true},
    {.code = "NC", .is_debit = true},
    {.code = "VD", .last = kLastOfOldTypes},
    {.code = "TV", .last = kLastOfOldTypes, .may_be_summarised = true},
    {.code = "ND"},
    {.code = "TD", .last = kLastOfOldTypes, .is_debit = true, .may_be_summarised = true},
    {.code = "AA", .last = kLastOfOldTypes},
    {.code = "DA", .last = kLastOfOldTypes, .is_debit = true},
    {.code = "RP"},
    {.code = "RE", .is_debit = true},
    {.code = "CS"},
    {.code = "LD"},
    {.code = "RA"},
};

}  // namespace

std::span<const DocumentType> DocumentType::All() { return kTypesByUse; }

const DocumentType* DocumentType::Find(std::string_view code) {
  const auto* const type = std::ranges::find(kTypesByUse, code, &DocumentType::code);
  return type == std::end(kTypesByUse) ? nullptr : type;
}

}  // namespace zevo
