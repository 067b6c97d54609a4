// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_FILEFACES_H_
#define ZEVO_COMPONENT_FILEFACES_H_

#include <zevo/component/Face.h>
#include <zevo/facades/NullRecord.h>

#include <memory>

namespace zevo::component {

/// The record that a host gave, or the null record of its class, with which the operation fails by itself.
template <class Record>
const Record& OrNone(const std::shared_ptr<Record>& record) {
  return NullRecord<Record>::Or(record.get());
}

/// A variable of the host that an operation reads and may assign.
template <class Record>
class Variable {
 public:
  explicit Variable(Interface<Record>** face) : face_(face), before_(CoreOf<Record>(*face)), record_(before_) {}
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

  std::shared_ptr<Record>& record() { return record_; }

  /// Puts into the variable of the host what the operation left.
  void Assign() {
    if (record_ == before_) return;
    Interface<Record>* old = *face_;
    *face_ = FaceFor(record_).Detach();
    if (old != nullptr) old->Release();
  }

 private:
  Interface<Record>** face_;
  std::shared_ptr<Record> before_;
  std::shared_ptr<Record> record_;
};

}  // namespace zevo::component

// The operations of the files that hosts work with, one line each.

#define ZEVO_OPERATION(Name)                              \
  STDMETHODIMP Name(VARIANT_BOOL* result) override {      \
    return Answer(result, [&] { return core().Name(); }); \
  }

#define ZEVO_COUNT_OF(Name)                               \
  STDMETHODIMP Name(LONG* result) override {              \
    return Answer(result, [&] { return core().Name(); }); \
  }

/// Hands a record to the library.
#define ZEVO_WITH_RECORD(Name, Record)                                                       \
  STDMETHODIMP Name(::_##Record* value, VARIANT_BOOL* result) override {                     \
    return Answer(result, [&] { return core().Name(OrNone(CoreOf<zevo::Record>(value))); }); \
  }

/// The same for a record that comes by reference. The variable is not changed.
#define ZEVO_WITH_VARIABLE(Name, Record)                                                      \
  STDMETHODIMP Name(::_##Record** value, VARIANT_BOOL* result) override {                     \
    if (value == nullptr) return E_POINTER;                                                   \
    return Answer(result, [&] { return core().Name(OrNone(CoreOf<zevo::Record>(*value))); }); \
  }

/// Has the library put a record into a variable.
#define ZEVO_INTO_VARIABLE(Name, Record)                                  \
  STDMETHODIMP Name(::_##Record** value, VARIANT_BOOL* result) override { \
    if (value == nullptr) return E_POINTER;                               \
    return Answer(result, [&] {                                           \
      Variable<zevo::Record> variable(value);                             \
      const bool succeeded = core().Name(variable.record());              \
      variable.Assign();                                                  \
      return succeeded;                                                   \
    });                                                                   \
  }

#endif  // ZEVO_COMPONENT_FILEFACES_H_
