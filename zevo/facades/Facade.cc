#include <zevo/facades/Facade.h>

#include <zevo/facades/ErrorRecording.h>

#include <string>

namespace zevo {

void Facade::Require(bool condition, Message message, std::string_view member) const {
  if (!condition) throw LibraryError(message, std::string(name_).append(".").append(member));
}

void Facade::RecordError() noexcept {
  exception_ =
      zevo::RecordError(keeps_unknown_descriptions_ ? UnknownDescription::kKept : UnknownDescription::kEmptied);
}

}  // namespace zevo
