// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_FACT_H_
#define ZEVO_CHECK_FACT_H_

#include <zevo/check/CalendarDate.h>
#include <zevo/model/Decimal.h>

#include <cstdint>
#include <string_view>

namespace zevo {

/// What an element of an entity says, read once for all rules. A rule looks at the value only where it is `Read`; what
/// cannot be read is told by READ or SCHEMA, and rules say nothing that it takes part in.
template <class T>
struct Fact {
  enum class State : uint8_t { kMissing, kUnreadable, kRead };

  T value{};
  uint32_t element = 0;  ///< in the entity; the one around it where it is missing
  State state = State::kMissing;

  bool Read() const { return state == State::kRead; }
  bool IsThere() const { return state != State::kMissing; }
  bool Missing() const { return state == State::kMissing; }
  const T& operator*() const { return value; }
  const T* operator->() const { return &value; }
};

/// As the file has it, nothing trimmed. Always readable. Valid as long as the entity.
using TextFact = Fact<std::string_view>;
/// A number of any length, exactly.
using NumberFact = Fact<Decimal>;
/// A whole number.
using CountFact = Fact<int64_t>;
using DateFact = Fact<CalendarDate>;
using TimeFact = Fact<CalendarTime>;

}  // namespace zevo

#endif  // ZEVO_CHECK_FACT_H_
