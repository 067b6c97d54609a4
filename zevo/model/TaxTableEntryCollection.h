// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TAXTABLEENTRYCOLLECTION_H_
#define ZEVO_MODEL_TAXTABLEENTRYCOLLECTION_H_

#include <zevo/model/RecordCollection.h>
#include <zevo/model/TaxTableEntry.h>

#include <string>

namespace zevo {

/// The entries of a tax table, found by position.
class TaxTableEntryCollection : public RecordCollection<TaxTableEntryCollection, TaxTableEntry> {
  // Its items carry no key.
};

}  // namespace zevo

#endif  // ZEVO_MODEL_TAXTABLEENTRYCOLLECTION_H_
