// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_FACADE_H_
#define ZEVO_FACADES_FACADE_H_

#include <zevo/Api.h>
#include <zevo/Error.h>
#include <zevo/model/AuditException.h>

#include <memory>
#include <string>
#include <string_view>

namespace zevo {

class IDALHelper;
/// When an error keeps its own description instead of the message of its number.
enum class OwnDescription;

/// What the façades have in common: an operation that fails throws nothing, but leaves its failure behind.
class ZEVO_API Facade {
 public:
  Facade(const Facade&) = delete;
  Facade& operator=(const Facade&) = delete;

  /// The failure of the last operation, null after a success.
  const std::shared_ptr<const zevo::AuditException>& AuditException() const { return exception_; }

 protected:
  /// What a façade reads: one that goes through its input once, and does not write it back, takes a pipe as well.
  enum class Input { kFile, kFileOrStandardInput };

  /// `name` is the class that errors of its own operations name as their source; it must outlive the object.
  Facade(std::string_view name, OwnDescription ownDescription) : name_(name), own_description_(ownDescription) {}
  ~Facade() = default;

  /// Raises a message with the source "name.member" unless the condition holds.
  void Require(bool condition, Message message, std::string_view member) const;

  /// What `CreateAuditFile` demands of a façade, open or not, and of its file; raises message 4, 1 or 3.
  void RequireCreatable(bool isOpen, const std::string& fileName) const;
  /// The same of `OpenAuditFile`; raises message 4, 1 or 2.
  void RequireOpenable(bool isOpen, const std::string& fileName, Input input) const;
  /// Demands a file that can be read; raises message 1 or 2.
  void RequireFile(const std::string& fileName, Input input, std::string_view member) const;

  /// The one place where errors are caught. Tells whether the operation succeeded.
  template <class Operation>
  bool Attempt(Operation&& operation) {
    try {
      operation();
      ClearError();
      return true;
    } catch (const Error& error) {  // by its type, because finding it out later takes as long as the throw
      RecordError(error);
    } catch (...) {
      RecordError();
    }
    return false;
  }

  /// Attempts `operation(helper)`, which writes the record with a mapper, on the façade's writer or what stands for it
  /// with a null record. Fails with message 5 while the writer is not open. For the façades that write: see
  /// RecordWriting.h.
  template <class R, class Operation>
  bool Write(std::string_view member, IDALHelper& writer, const R& record, Operation&& operation);
  /// The same with the operation that creates a record of the class.
  template <class R>
  bool Write(std::string_view member, IDALHelper& writer, const R& record);

  void ClearError() { exception_ = nullptr; }
  /// Keeps the exception that is being handled.
  void RecordError() noexcept;
  /// Keeps an error.
  void RecordError(const Error& error) noexcept;

 private:
  std::string_view name_;
  OwnDescription own_description_;
  std::shared_ptr<const zevo::AuditException> exception_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_FACADE_H_
