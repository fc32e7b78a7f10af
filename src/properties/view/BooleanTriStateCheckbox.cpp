// SPDX-License-Identifier: MIT
#include "properties/view/BooleanTriStateCheckbox.h"

namespace TES {

void BooleanTriStateCheckbox::nextCheckState()
{
    setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

} // namespace TES
