#include "platform/toolkit/object.h"

TObject::~TObject() = default;

void TPersistent::Assign(TPersistent const *)
{
}
