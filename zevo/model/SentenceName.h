// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SENTENCENAME_H_
#define ZEVO_MODEL_SENTENCENAME_H_

#include <zevo/Api.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Language.h>

#include <string>
#include <string_view>

namespace zevo {

/// What a sentence about a record begins with: "A fatura FT A/12", "Invoice FT A/12". The key is the text of its
/// `KeyOf` element; a long one is abridged. A kind of which a file has one goes without.
ZEVO_API std::string SentenceName(EntityKind kind, std::string_view key, Language language);

/// The same as it stands in front of a colon: "Cliente C1", "FT A/12".
ZEVO_API std::string LabelName(EntityKind kind, std::string_view key, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_SENTENCENAME_H_
