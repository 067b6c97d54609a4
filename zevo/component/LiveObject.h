// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_LIVEOBJECT_H_
#define ZEVO_COMPONENT_LIVEOBJECT_H_

namespace zevo::component {

/// What keeps the server loaded while it lives: an object that a host holds, or a lock on the server.
class LiveObject {
 public:
  LiveObject() noexcept;
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;
  ~LiveObject();

  static int Count();
  static void Lock();
  static void Unlock();
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_LIVEOBJECT_H_
