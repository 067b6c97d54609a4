// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Options.h>

#include <zevo/model/internal/OptionsMapping.h>

namespace zevo {

bool Options::ValidateOnAssignment() const { return OptionsMapping::OfThisThread().ValidateOnAssignment(); }

void Options::set_ValidateOnAssignment(bool value) { OptionsMapping::OfThisThread().set_ValidateOnAssignment(value); }

std::string Options::SchemaLocation() const { return OptionsMapping::OfThisThread().SchemaLocation(); }

void Options::set_SchemaLocation(std::string_view value) { OptionsMapping::OfThisThread().set_SchemaLocation(value); }

void UseBuiltInSchema() { OptionsMapping::OfThisThread().UseBuiltInSchema(); }

}  // namespace zevo
