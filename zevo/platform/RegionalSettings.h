// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_REGIONALSETTINGS_H_
#define ZEVO_PLATFORM_REGIONALSETTINGS_H_

#include <string>
#include <string_view>

namespace zevo {

/// The decimal separator of the process's locale: "." unless the host called `setlocale`. Valid until the next call or
/// change of locale.
std::string_view DecimalSeparator();

/// The separator of thousands of the process's locale; empty when it has none.
std::string_view ThousandsSeparator();

/// Today in the machine's time zone, yyyy-mm-dd.
std::string LocalDate();

}  // namespace zevo

#endif  // ZEVO_PLATFORM_REGIONALSETTINGS_H_
