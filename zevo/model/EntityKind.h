// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_ENTITYKIND_H_
#define ZEVO_MODEL_ENTITYKIND_H_

#include <zevo/Api.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace zevo {

/// The kinds of records that an audit file is read in, in the order of the file. Lines, addresses and other parts of a
/// record have none.
enum class EntityKind : uint8_t {
  kHeader,
  kGeneralLedger,
  kCustomer,
  kSupplier,
  kProduct,
  kTaxTable,
  kGeneralLedgerEntries,
  kJournal,
  kTransaction,
  kSalesInvoices,
  kInvoice,
};
/// How many there are.
inline constexpr size_t kEntityKinds = static_cast<size_t>(EntityKind::kInvoice) + 1;

/// All of them, in their order.
ZEVO_API std::span<const EntityKind> EntityKinds();

/// The name of the element and of the class of record, such as "Customer".
ZEVO_API std::string_view NameOf(EntityKind kind);

/// Where its elements stand in the file, such as "/AuditFile/MasterFiles/Customer".
ZEVO_API std::string_view PathOf(EntityKind kind);

/// The kind of an element's or a class's name, in any letter case; none for another name.
ZEVO_API std::optional<EntityKind> EntityKindOf(std::string_view name);

/// The name of the element by which a file tells its records of a kind apart, such as "CustomerID"; empty for a kind of
/// which it has one.
ZEVO_API std::string_view KeyOf(EntityKind kind);

/// The kind whose entries are of this kind: a transaction stands in a journal, a journal in the section of ledger
/// entries. Where the first entry begins, what is told of the parent itself ends. None for the others.
ZEVO_API std::optional<EntityKind> ParentOf(EntityKind kind);
/// Whether it is the parent of another kind.
ZEVO_API bool HoldsEntries(EntityKind kind);

}  // namespace zevo

#endif  // ZEVO_MODEL_ENTITYKIND_H_
