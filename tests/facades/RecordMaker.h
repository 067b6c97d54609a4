// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_RECORDMAKER_H_
#define ZEVO_TESTS_FACADES_RECORDMAKER_H_

#include <zevo/adapters.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zevo::testing {

/// Which of the two amounts a record holds where the file takes one: both with the debit (or percentage) winning, or
/// the credit (or amount) alone.
enum class Side { kBothWithDebit, kCreditAlone };

/// Makes records with a value in every property, each different from all others and as the schema wants it. Values of
/// an enumeration come in turn.
class RecordMaker {
 public:
  explicit RecordMaker(Side side) : side_(side) {}

  template <class T>
  std::shared_ptr<T> Make(std::string_view className) {
    auto record = std::make_shared<T>();
    Fill(*record, PropertiesOf<T>(), std::string(className));
    return record;
  }

 private:
  void Fill(Record& record, std::span<const Property> properties, const std::string& path);
  void FillProperty(Record& record, const Property& property, const std::string& path);
  PropertyValue ValueFor(const Property& property, const std::string& path);
  std::string TextFor(const Property& property, std::string_view path);

  Side side_;
  int serial_ = 100;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_RECORDMAKER_H_
