// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_REGISTRATION_H_
#define ZEVO_COMPONENT_REGISTRATION_H_

#include <windows.h>

namespace zevo::component {

/// Lets every program of the machine find the server: its creatable classes by name and by number, the type library and
/// how its interfaces travel between threads. Where that is refused, it does so for the user. Throws `Error`.
void Register();

/// Undoes `Register`, for the machine and for the user: removes what names this very file and, when no other copy is
/// left there, what all copies share. Throws `Error`.
void Unregister();

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_REGISTRATION_H_
