// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_RECORDWALK_H_
#define ZEVO_TESTS_FACADES_RECORDWALK_H_

#include <zevo/adapters.h>

#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "tests/support/PropertyWalk.h"

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
  std::string TextFor(std::string_view path);

  Side side_;
  int serial_ = 100;
};

/// The values of all properties, and how many items collections have, under their paths, such as
/// "Invoice.Line[1].Tax.TaxCode".
using RecordValues = std::map<std::string, std::string>;

template <class T>
RecordValues ValuesOf(const std::shared_ptr<T>& record, std::string_view className) {
  RecordValues values;
  if (record == nullptr) return values;
  WalkProperties(*record, PropertiesOf<T>(), std::string(className) + ".",
                 [&values](const std::string& name, const Property&, const PropertyValue& value) {
                   values[name] = TextOf(value);
                 });
  return values;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_RECORDWALK_H_
