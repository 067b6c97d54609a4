// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Face.h>

namespace zevo::component {
namespace {

class SAFTConstantsFace final : public Face<zevo::SAFTConstants> {
 public:
  using Face::Face;
};

class OptionsFace final : public Face<zevo::Options> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(ValidateOnAssignment)
  ZEVO_PROPERTY(SchemaLocation)
};

class AuditExceptionFace final : public Face<zevo::AuditException> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(Number)
  ZEVO_PROPERTY(Description)
  ZEVO_PROPERTY(Source)
};

}  // namespace

ZEVO_FACE_OF(SAFTConstants);
ZEVO_FACE_OF(Options);
ZEVO_FACE_OF(AuditException);

}  // namespace zevo::component
