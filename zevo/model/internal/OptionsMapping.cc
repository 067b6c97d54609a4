// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/OptionsMapping.h>

#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Folders.h>
#include <zevo/platform/LetterCase.h>
#include <zevo/platform/ThreadExit.h>

#include <utility>

namespace zevo {
namespace {

// The folders under which the schema lies, and its name.
constexpr std::string_view kSchemaPath[] = {"Zevo", "2070", "Zevo.Adapters.11", "SAF-T-PT_1_01.xsd"};

std::string DefaultSchemaLocation() {
  std::string path = CommonFilesFolder();
  if (path.find_first_not_of(' ') == std::string::npos) path = LibraryFolder();
  // Without a folder there is no default: a relative path could lead to a schema that somebody else put there.
  if (path.empty()) return path;
  for (const std::string_view name : kSchemaPath) path = JoinPath(path, name);
  return path;
}

}  // namespace

thread_local constinit OptionsMapping* OptionsMapping::present_ = nullptr;

OptionsMapping& OptionsMapping::Start() {
  std::unique_ptr<OptionsMapping> made(new OptionsMapping);
  AtThreadExit(
      [](void* ended) {
        if (present_ == ended) present_ = nullptr;
        delete static_cast<OptionsMapping*>(ended);
      },
      made.get());
  present_ = made.release();
  return *present_;
}

OptionsMapping::OptionsMapping() {
  ForgetLimits();
  set_SchemaLocation(DefaultSchemaLocation());
}

SchemaSource OptionsMapping::HeldSchema(std::string_view errorSource) const {
  try {
    return SchemaOrBuiltIn().Held();
  } catch (const Error& error) {
    throw Error(error.Number(), std::string(errorSource), error.Description());
  }
}

SchemaSource OptionsMapping::SchemaOrBuiltIn() const {
  const bool named = !EqualIgnoringCase(SchemaLocation(), DefaultSchemaLocation());
  return named || FileExists(SchemaLocation()) ? source_ : SchemaSource::BuiltIn();
}

void OptionsMapping::set_SchemaLocation(std::string_view value) {
  if (!EqualIgnoringCase(value, SchemaLocation())) Load(SchemaSource(std::string(value)));
}

void OptionsMapping::UseBuiltInSchema() {
  if (!source_.IsBuiltIn()) Load(SchemaSource::BuiltIn());
}

void OptionsMapping::Load(SchemaSource source) {
  auto schema = std::make_unique<Validations>();
  schema->LoadSchema(source);
  source_ = std::move(source);
  schema_ = std::move(schema);
  ForgetLimits();
}

int OptionsMapping::LookUp(BasePath path, int place, std::string_view element) {
  const int limit = schema_->MaxLength(std::string(TextOf(path)).append("/").append(element));
  limits_[static_cast<size_t>(path)][static_cast<size_t>(place)] = static_cast<int16_t>(limit);
  return limit;
}

void OptionsMapping::ForgetLimits() {
  for (auto& limits : limits_) limits.fill(kNotLookedUp);
}

}  // namespace zevo
