// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_INVOICESIGNING_H_
#define ZEVO_TOOLS_SAFT_CREATE_INVOICESIGNING_H_

#include <zevo/adapters.h>

#include <string>

#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {

/// Signs the documents of a dataset that have no Hash with the private key in a file.
class InvoiceSigning {
 public:
  /// Fails where the file has no key that can be used.
  explicit InvoiceSigning(const std::string& file);

  /// The next document, complete; why it cannot be signed is an error of its row.
  void Sign(Invoice& invoice, RecordFile& row);

 private:
  DocumentSigner signer_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_INVOICESIGNING_H_
