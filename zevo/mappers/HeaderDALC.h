// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_HEADERDALC_H_
#define ZEVO_MAPPERS_HEADERDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/Header.h>

#include <memory>

namespace zevo {

/// Writes and reads the file's Header.
class HeaderDALC {
 public:
  /// Raises message 101 when the file has a header already.
  void CreateHeader(const Header& value, IDALHelper& writer);
  /// Raises message 102 when the file has none; the slot is null then.
  void ReadHeader(std::shared_ptr<Header>& value, IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_HEADERDALC_H_
