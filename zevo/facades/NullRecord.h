// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_NULLRECORD_H_
#define ZEVO_FACADES_NULLRECORD_H_

#include <typeinfo>

namespace zevo {

/// Stands for "no object" where a façade takes a record by reference. Hosts whose records are pointers may give none:
/// an operation fails with error 91 then, after the checks that come before it looks into the record, and writes
/// nothing.
template <class R>
class NullRecord final : public R {
 public:
  /// `record`, or what stands for none. The latter lives as long as the library.
  static const R& Or(const R* record) {
    if (record != nullptr) return *record;
    static const NullRecord none;
    return none;
  }
};

template <class R>
bool IsNull(const R& record) {
  return typeid(record) == typeid(NullRecord<R>);
}

}  // namespace zevo

#endif  // ZEVO_FACADES_NULLRECORD_H_
