// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_ADDRESSDALC_H_
#define ZEVO_MAPPERS_ADDRESSDALC_H_

#include <zevo/mappers/Layout.h>
#include <zevo/model/AddressStructure.h>

#include <memory>

namespace zevo {

/// Writes and reads an address under any element name.
class AddressDALC {
 public:
  void CreateAddress(ElementName name, Element parent, IDALHelper& helper, const AddressStructure& address);
  /// Fills the address, made first when it is null. Where there is no such element, it stays as it was.
  void ReadAddress(ElementName name, std::shared_ptr<AddressStructure>& address, Element parent, IDALReader& helper);
};

/// An owned address: always written.
template <class Getter>
struct OwnedAddressRow {
  ElementName name;
  Getter get;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& helper) const {
    AddressDALC().CreateAddress(name, parent, helper, *(record.*get)());
  }
  template <class R>
  void Read(R& record, ElementTexts&, Element element, IDALReader& helper) const {
    std::shared_ptr<AddressStructure> address = (record.*get)();
    AddressDALC().ReadAddress(name, address, element, helper);
  }
};

template <class Getter>
constexpr auto OwnedAddress(ElementName name, Getter get) {
  return OwnedAddressRow<Getter>{name, get};
}

/// An address assigned by reference: written when there is one.
template <class Getter, class Setter>
struct SharedAddressRow {
  ElementName name;
  Getter get;
  Setter set;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& helper) const {
    if (const auto& address = (record.*get)()) AddressDALC().CreateAddress(name, parent, helper, *address);
  }
  template <class R>
  void Read(R& record, ElementTexts&, Element element, IDALReader& helper) const {
    std::shared_ptr<AddressStructure> address;
    AddressDALC().ReadAddress(name, address, element, helper);
    (record.*set)(std::move(address));
  }
};

template <class Getter, class Setter>
constexpr auto SharedAddress(ElementName name, Getter get, Setter set) {
  return SharedAddressRow<Getter, Setter>{name, get, set};
}

}  // namespace zevo

#endif  // ZEVO_MAPPERS_ADDRESSDALC_H_
