// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QCheckBox>

namespace TES {

// A check box whose partial state only code sets, to show the mixed value of several
// objects: a click always goes to ticked or unticked. The editor of BooleanViewValue, which
// owns it.
class TES_EXPORT BooleanTriStateCheckbox : public QCheckBox
{
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

protected:
    // Ticked goes to unticked; unticked and partial go to ticked.
    void nextCheckState() override;
};

} // namespace TES
