// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_HOSTMESSAGES_H_
#define ZEVO_PLATFORM_HOSTMESSAGES_H_

namespace zevo {

/// Sleeps for a second, then lets the window messages that wait for the calling thread be processed. Where the system
/// has no such messages, it only sleeps.
void AwaitHostMessages();

}  // namespace zevo

#endif  // ZEVO_PLATFORM_HOSTMESSAGES_H_
