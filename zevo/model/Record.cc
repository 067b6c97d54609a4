// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Record.h>

#include <zevo/model/internal/OptionsMapping.h>
#include <zevo/platform/Text.h>

namespace zevo {

Record::Record() = default;
Record::~Record() = default;

void Record::Assign(std::string& field, std::string_view value, const Check& check) {
  if (field == value) return;
  const int limit = OptionsMapping::OfThisThread().MaxLength(check.path, check.place, check.element);
  field.assign(limit == Validations::kNoLimit ? value : Leftmost(value, limit));
}

void Record::LookUp(const Check& check) {
  OptionsMapping::OfThisThread().MaxLength(check.path, check.place, check.element);
}

}  // namespace zevo
