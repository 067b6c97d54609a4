// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/WrittenForm.h>

#include <zevo/mappers/Layouts.h>

#include <algorithm>

namespace zevo {

std::optional<WrittenForm> WrittenFormOf(const Record& record, std::string_view property) {
  const auto layout = LayoutOf(record);
  const auto row = std::ranges::find(layout, property, &LayoutRow::property);
  if (row == layout.end()) return std::nullopt;
  const auto position = static_cast<size_t>(row - layout.begin());
  return WrittenForm{row->element,
                     position,
                     row->form,
                     row->partner,
                     row->written == Written::kIfPartnerIsZero,
                     row->written == Written::kAlways};
}

}  // namespace zevo
