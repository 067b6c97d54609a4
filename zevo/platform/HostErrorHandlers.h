// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_HOSTERRORHANDLERS_H_
#define ZEVO_PLATFORM_HOSTERRORHANDLERS_H_

struct _xmlError;  // NOLINT(bugprone-reserved-identifier): libxml2's name

namespace zevo {

/// Puts libxml2's error handlers of this thread, which the host may have set, aside for as long as it lives, and then
/// back. Errors that libxml2 reports only to them, such as those of regular expressions and of memory that runs out
/// while it reports another error, are dropped meanwhile; they would be printed otherwise, or reach a host that does
/// not expect them. To be destroyed by the thread that made it.
class HostErrorHandlers {
 public:
  HostErrorHandlers();
  HostErrorHandlers(const HostErrorHandlers&) = delete;
  HostErrorHandlers& operator=(const HostErrorHandlers&) = delete;
  ~HostErrorHandlers();

 private:
  void (*generic_)(void* context, const char* message, ...);
  void* generic_context_;
  void (*structured_)(void* context, _xmlError* error);
  void* structured_context_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_HOSTERRORHANDLERS_H_
