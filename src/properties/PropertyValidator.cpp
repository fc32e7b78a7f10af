// SPDX-License-Identifier: MIT
#include "properties/PropertyValidator.h"

namespace TES {

PropertyValidator::PropertyValidator() = default;

PropertyValidator::~PropertyValidator() = default;

bool PropertyValidator::getEnabled() const
{
    return _enabled;
}

void PropertyValidator::setEnabled(bool enabled)
{
    _enabled = enabled;
}

} // namespace TES
