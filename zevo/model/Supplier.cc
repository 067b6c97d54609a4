// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Supplier.h>

#include <zevo/Error.h>

namespace zevo {

namespace {

Error ObsoleteProperty() { return Error(-1, "Supplier", "Propriedade obsoleta, será removida na próxima versão"); }

}  // namespace

Supplier::Supplier() { BillingAddress_->set_BasePath(BasePath::kSupplierBillingAddress); }

Supplier::~Supplier() = default;
std::span<const Property> Supplier::Properties() const { return PropertiesOf<Supplier>(); }

std::shared_ptr<AddressStructure> Supplier::ShipToAddress() const { throw ObsoleteProperty(); }

void Supplier::set_ShipToAddress(const std::shared_ptr<AddressStructure>&) { throw ObsoleteProperty(); }

}  // namespace zevo
