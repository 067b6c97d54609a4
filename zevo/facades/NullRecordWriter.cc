// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/NullRecordWriter.h>

#include <zevo/Error.h>

namespace zevo {

void NullRecordWriter::Refuse() { throw MakeRunTimeError(RunTimeError::kObjectNotSet); }

}  // namespace zevo
