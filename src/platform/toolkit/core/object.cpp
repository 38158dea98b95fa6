#include "platform/toolkit/core/object.h"

TObject::~TObject() = default;

void TPersistent::Assign(TPersistent const *)
{
}
