// SPDX-License-Identifier: MIT
#include "services/Constant.h"

namespace TES {

char const *const Constant::ApplicationDir = "tes";

} // namespace TES
