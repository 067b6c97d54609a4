// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_WRITTENFORM_H_
#define ZEVO_FACADES_WRITTENFORM_H_

#include <zevo/Api.h>
#include <zevo/model/Record.h>
#include <zevo/model/TextForm.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace zevo {

/// How the façades write a property into the file: for programs that tell beforehand what will be left of a value.
struct WrittenForm {
  /// Name of the element, such as "OriginatingON" for `OrderReferences::OriginatingOn`.
  std::string_view element;
  /// Its place among the elements of the record, from 0: they stand in this order in the file.
  size_t position = 0;
  /// How the value becomes the text of the element. A record or a collection has none: kPlain.
  TextForm form = TextForm::kPlain;
  /// The other property of two of which the file holds only one, such as "CreditAmount" for "DebitAmount"; empty for
  /// all others.
  std::string_view partner;
  /// Whether it is the one that is left out: the partner is written unless that is 0.
  bool yields = false;
  /// Whether the element is written even where its text is empty, as a record of its own that is always there is. One
  /// of two is not.
  bool always = false;
};

/// That of a property of the record's class, by the name that `PropertiesOf` gives it; nothing for another name.
/// The texts last as long as the library is loaded.
ZEVO_API std::optional<WrittenForm> WrittenFormOf(const Record& record, std::string_view property);

}  // namespace zevo

#endif  // ZEVO_FACADES_WRITTENFORM_H_
