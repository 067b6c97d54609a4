// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SNAKECASE_H_
#define ZEVO_MODEL_SNAKECASE_H_

#include <zevo/Api.h>

#include <string>
#include <string_view>

namespace zevo {

/// The name of a property or a record as languages have it that write small letters with underscores: "GLPostingDate"
/// becomes "gl_posting_date", "CompanyID" "company_id". A word begins at a capital after a small letter or a digit, and
/// at the last of several capitals before a small letter. Other characters stay: "Address.City" becomes "address.city".
ZEVO_API std::string SnakeCase(std::string_view name);

}  // namespace zevo

#endif  // ZEVO_MODEL_SNAKECASE_H_
