// SPDX-License-Identifier: MIT
#include "tools/ITransformToolDelegate.h"

namespace TES {

ITransformToolDelegate::~ITransformToolDelegate() = default;

} // namespace TES
