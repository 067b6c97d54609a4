// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_FACES_H_
#define ZEVO_COMPONENT_FACES_H_

#include <ZevoAdapters11.h>
#include <wrl/client.h>
#include <zevo/adapters.h>
#include <zevo/component/CheckCollections.h>
#include <zevo/component/Conversions.h>
#include <zevo/component/Identities.h>
#include <zevo/component/ValueCollection.h>

#include <memory>
#include <utility>

namespace zevo::component {

/// The interface and the class under which hosts know a class of the library.
template <class Core>
struct FaceOf;

template <class Core>
using Interface = typename FaceOf<Core>::Interface;

// One line for each class that hosts can hold, under its own name or another.
#define ZEVO_FACE_AS(Class, ComName)                                            \
  template <>                                                                   \
  struct FaceOf<Class> {                                                        \
    using Interface = ::_##ComName;                                             \
    using ComClass = ::ComName;                                                 \
    static Microsoft::WRL::ComPtr<Interface> Make(std::shared_ptr<Class> core); \
  }
#define ZEVO_FACE(Class) ZEVO_FACE_AS(Class, Class)
ZEVO_FACE(AddressStructure);
ZEVO_FACE(AuditException);
ZEVO_FACE(AuditFile);
ZEVO_FACE(AuditFileChecker);
ZEVO_FACE(AuditFileReader);
ZEVO_FACE(AuditFileScanner);
ZEVO_FACE(AuditFileStreamWriter);
ZEVO_FACE(AuditFileStreamer);
ZEVO_FACE(CreditNote);
ZEVO_FACE(CreditNoteCollection);
ZEVO_FACE(CurrencyStructure);
ZEVO_FACE(Customer);
ZEVO_FACE(DocumentTotals);
ZEVO_FACE(FilePlace);
ZEVO_FACE(FindingCollection);
ZEVO_FACE(GeneralLedger);
ZEVO_FACE(GeneralLedgerEntries);
ZEVO_FACE(Header);
ZEVO_FACE(Invoice);
ZEVO_FACE(InvoiceLine);
ZEVO_FACE(InvoiceLineCollection);
ZEVO_FACE(Journal);
ZEVO_FACE(LineCollection);
ZEVO_FACE(Options);
ZEVO_FACE(OrderReferences);
ZEVO_FACE(Problem);
ZEVO_FACE(ProblemCollection);
ZEVO_FACE(Product);
ZEVO_FACE(References);
ZEVO_FACE(RuleInfoCollection);
ZEVO_FACE(SAFTConstants);
ZEVO_FACE(SalesInvoices);
ZEVO_FACE(ScannedElement);
ZEVO_FACE(ScannedElementCollection);
ZEVO_FACE(Settlement);
ZEVO_FACE(ShippingPointStructure);
ZEVO_FACE(Supplier);
ZEVO_FACE(Tax);
ZEVO_FACE(TaxTable);
ZEVO_FACE(TaxTableEntry);
ZEVO_FACE(TaxTableEntryCollection);
ZEVO_FACE(Transaction);
ZEVO_FACE(TransactionLine);
ZEVO_FACE_AS(ToldFinding, Finding);
ZEVO_FACE_AS(ToldRule, RuleInfo);
#undef ZEVO_FACE
#undef ZEVO_FACE_AS

/// The face of an object of the library, null for none. The same object has the same face as long as somebody holds it.
template <class Core>
Microsoft::WRL::ComPtr<Interface<Core>> FaceFor(const std::shared_ptr<Core>& core) {
  if (core == nullptr) return nullptr;
  void* known = Identities::OfThisProcess().Find(core.get());
  return known != nullptr ? static_cast<Interface<Core>*>(known) : FaceOf<Core>::Make(core);
}

/// How the server's own code reaches the object behind a face.
struct CoreAccess : IUnknown {
  /// The object, or null when the face does not have the interface.
  virtual std::shared_ptr<void> Behind(const IID& interfaceId) = 0;
};
inline constexpr IID kCoreAccessId = {0x6c7b2c1e, 0x0d0e, 0x4d53, {0x9a, 0x1b, 0x38, 0x5f, 0x0e, 0x77, 0x4c, 0x21}};

/// The object behind a face that the host gave. Throws error 13 when it is none of this server's, or of another class.
std::shared_ptr<void> CoreBehind(IUnknown* face, const IID& interfaceId);

template <class Core>
std::shared_ptr<Core> CoreOf(Interface<Core>* face) {
  return std::static_pointer_cast<Core>(CoreBehind(face, __uuidof(Interface<Core>)));
}

/// Objects travel as their faces.
template <class Core>
struct Conversion<std::shared_ptr<Core>> {
  using Type = Interface<Core>*;
  static Type To(const std::shared_ptr<Core>& value) { return FaceFor(value).Detach(); }
  static std::shared_ptr<Core> From(Type value) { return CoreOf<Core>(value); }
};

/// The library never changes an `AuditException` that it gave away, but its interface has setters for hosts.
template <>
struct Conversion<std::shared_ptr<const zevo::AuditException>> {
  using Type = Interface<zevo::AuditException>*;
  static Type To(const std::shared_ptr<const zevo::AuditException>& value) {
    return FaceFor(std::const_pointer_cast<zevo::AuditException>(value)).Detach();
  }
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_FACES_H_
