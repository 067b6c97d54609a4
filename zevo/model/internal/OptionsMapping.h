// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_OPTIONSMAPPING_H_
#define ZEVO_MODEL_INTERNAL_OPTIONSMAPPING_H_

#include <zevo/model/BasePath.h>
#include <zevo/model/Property.h>
#include <zevo/model/internal/Validations.h>
#include <zevo/platform/SchemaSource.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// The library-wide state of a thread: the options and the schema they name, started on the thread's first use.
class OptionsMapping {
 public:
  static OptionsMapping& OfThisThread() { return present_ != nullptr ? *present_ : Start(); }

  OptionsMapping(const OptionsMapping&) = delete;
  OptionsMapping& operator=(const OptionsMapping&) = delete;

  bool ValidateOnAssignment() const { return validate_on_assignment_; }
  void set_ValidateOnAssignment(bool value) { validate_on_assignment_ = value; }

  /// The schema in use, loaded or not.
  const SchemaSource& Schema() const { return source_; }

  /// The same but, where it is the one at the default place and there is none, the one that is built into the library.
  SchemaSource SchemaOrBuiltIn() const;
  /// That one, read once for all that is made of it. What reading it raises is an error of `errorSource`.
  SchemaSource HeldSchema(std::string_view errorSource) const;

  /// The path of the schema in use, empty when it is no file.
  const std::string& SchemaLocation() const { return source_.File(); }
  /// Loads the schema at a path that differs in more than letter case from the present one. Only when memory runs out
  /// is there an error, and everything stays as it was.
  void set_SchemaLocation(std::string_view value);
  /// Loads the schema that is built into the library, with the same errors.
  void UseBuiltInSchema();

  /// Greatest length in characters of a property's value, Validations::kNoLimit when nothing limits it. `place` tells
  /// the properties under one path apart. What the schema says is looked up once for each property. Raises what
  /// Validations::MaxLength does.
  int MaxLength(BasePath path, int place, std::string_view element) {
    if (!validate_on_assignment_ || !schema_->IsLoaded()) return Validations::kNoLimit;
    const int16_t known = limits_[static_cast<size_t>(path)][static_cast<size_t>(place)];
    return known != kNotLookedUp ? known : LookUp(path, place, element);
  }

 private:
  static constexpr int16_t kNotLookedUp = -2;

  OptionsMapping();
  static OptionsMapping& Start();
  void Load(SchemaSource source);
  int LookUp(BasePath path, int place, std::string_view element);
  void ForgetLimits();

  // Every assignment to a property asks for it. Where the loader sets some room aside for it, the pointer is at a fixed
  // distance from the thread's own, which spares a call each time.
#ifdef __linux__
  [[gnu::tls_model("initial-exec")]]
#endif
  static thread_local constinit OptionsMapping* present_;

  bool validate_on_assignment_ = true;
  SchemaSource source_;
  std::unique_ptr<Validations> schema_ = std::make_unique<Validations>();
  std::array<std::array<int16_t, internal::kMaxRecordLines>, kBasePaths> limits_;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_OPTIONSMAPPING_H_
