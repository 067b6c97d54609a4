// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_USESCHEMA_H_
#define ZEVO_TESTS_SUPPORT_USESCHEMA_H_

#include <zevo/model/Options.h>

#include <string>

namespace zevo::testing {

/// How the default path of the schema ends.
#ifdef _WIN32
inline constexpr const char* kDefaultSchema = "\\Zevo\\2070\\Zevo.Adapters.11\\SAF-T-PT_1_01.xsd";
#else
inline constexpr const char* kDefaultSchema = "/Zevo/2070/Zevo.Adapters.11/SAF-T-PT_1_01.xsd";
#endif

/// Sets the options of the thread to the shipped schema with checks on, and puts back what they were.
class UseSchema {
 public:
  UseSchema() {
    Options().set_SchemaLocation(ZEVO_SCHEMA_FILE);
    Options().set_ValidateOnAssignment(true);
  }
  UseSchema(const UseSchema&) = delete;
  UseSchema& operator=(const UseSchema&) = delete;
  ~UseSchema() {
    Options().set_SchemaLocation(location_);
    Options().set_ValidateOnAssignment(validate_);
  }

 private:
  std::string location_ = Options().SchemaLocation();
  bool validate_ = Options().ValidateOnAssignment();
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_USESCHEMA_H_
