#ifndef ZEVO_TOOLS_SAFT_AUDITFILEOUTPUT_H_
#define ZEVO_TOOLS_SAFT_AUDITFILEOUTPUT_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zevo::saft {

/// An audit file that does not exist yet. Nothing is on disk until `Save`; a failure of the library is a `Failure`.
class AuditFileOutput {
 public:
  /// Fails when there is such a file.
  explicit AuditFileOutput(std::string_view path);

  /// Calls an operation of the library; when it fails, the file is to blame.
  template <class... Parameters, class... Arguments>
  void Do(bool (AuditFile::*operation)(Parameters...), Arguments&&... arguments) {
    if (!std::invoke(operation, file_, std::forward<Arguments>(arguments)...)) FailAtFile();
  }

  /// Writes a record; when that fails, its row in the dataset is to blame.
  template <class... Parameters, class... Arguments>
  void Write(const std::string& source, int64_t row, bool (AuditFile::*operation)(Parameters...),
             Arguments&&... arguments) {
    if (!std::invoke(operation, file_, std::forward<Arguments>(arguments)...)) FailAtRow(source, row);
  }

  void Save();

 private:
  [[noreturn]] void FailAtFile() const;
  [[noreturn]] void FailAtRow(const std::string& source, int64_t row) const;

  AuditFile file_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_AUDITFILEOUTPUT_H_
