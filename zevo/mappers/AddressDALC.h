// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_ADDRESSDALC_H_
#define ZEVO_MAPPERS_ADDRESSDALC_H_

#include <zevo/mappers/Layout.h>
#include <zevo/model/AddressStructure.h>

#include <memory>
#include <utility>

namespace zevo {

/// Writes and reads an address under any element name.
class AddressDALC {
 public:
  void CreateAddress(ElementName name, Element parent, IDALHelper& writer, const AddressStructure& address);
  /// Fills the address, made first when it is null. Where there is no such element, it stays as it was.
  void ReadAddress(ElementName name, std::shared_ptr<AddressStructure>& address, Element parent, IDALReader& reader);
};

/// An owned address: always written.
struct OwnedAddress {
  static constexpr Written kWritten = kAlways;

  static void Write(const std::shared_ptr<AddressStructure>& address, ElementName name, Element parent,
                    IDALHelper& writer) {
    AddressDALC().CreateAddress(name, parent, writer, *address);
  }
  template <class R, class Handle>
  static void Read(R& record, const Handle& property, ElementName name, Element parent, IDALReader& reader) {
    std::shared_ptr<AddressStructure> address = property.get(record);
    AddressDALC().ReadAddress(name, address, parent, reader);
  }
};

/// An address assigned by reference: written when there is one.
struct SharedAddress {
  static constexpr Written kWritten = Written::kIfSet;

  static void Write(const std::shared_ptr<AddressStructure>& address, ElementName name, Element parent,
                    IDALHelper& writer) {
    if (address) AddressDALC().CreateAddress(name, parent, writer, *address);
  }
  template <class R, class Handle>
  static void Read(R& record, const Handle& property, ElementName name, Element parent, IDALReader& reader) {
    std::shared_ptr<AddressStructure> address;
    AddressDALC().ReadAddress(name, address, parent, reader);
    property.set(record, std::move(address));
  }
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_ADDRESSDALC_H_
