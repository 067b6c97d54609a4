// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_CLASSES_H_
#define ZEVO_COMPONENT_CLASSES_H_

#include <unknwn.h>

namespace zevo::component {

/// The factory of a class that hosts may create; null for any other.
IClassFactory* FactoryOf(const CLSID& classId);

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_CLASSES_H_
