// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_AUDITEXCEPTION_H_
#define ZEVO_MODEL_AUDITEXCEPTION_H_

#include <zevo/Api.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace zevo {

/// What a façade keeps of the failure of its last operation.
class ZEVO_API AuditException {
 public:
  /// The full number of the error, such as -2147221503 (0x80040001), not the number of its message.
  int32_t Number() const { return Number_; }
  void set_Number(int32_t value) { Number_ = value; }
  /// In Portuguese for the library's own errors; otherwise the reason that the system or the parser gave.
  const std::string& Description() const { return Description_; }
  void set_Description(std::string_view value) { Description_ = value; }
  /// The class and operation that raised the error, such as "HeaderDALC.CreateHeader".
  const std::string& Source() const { return Source_; }
  void set_Source(std::string_view value) { Source_ = value; }

 private:
  int32_t Number_ = 0;
  std::string Description_;
  std::string Source_;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_AUDITEXCEPTION_H_
