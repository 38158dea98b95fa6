#include "platform/base/basic_obj.h"

Tvx_basic_obj::~Tvx_basic_obj() = default;
