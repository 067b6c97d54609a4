// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_SIGNEDTEXT_H_
#define ZEVO_CHECK_SIGNEDTEXT_H_

#include <zevo/model/Decimal.h>

#include <string>
#include <string_view>

namespace zevo {

/// What a document's signature is of, but for the Hash of the document before it, which follows:
/// "2008-03-05;2008-03-05T10:30:00;FT A/2;33.10;". Texts as the file has them; the total always with two decimals.
std::string SignedText(std::string_view invoiceDate, std::string_view systemEntryDate, std::string_view invoiceNo,
                       const Decimal& grossTotal);

}  // namespace zevo

#endif  // ZEVO_CHECK_SIGNEDTEXT_H_
