// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QPushButton>

namespace TES {

// One crumb of a ProgressWidget: a flat button that shows its frame while the pointer is
// over it. The widget owns its crumbs and makes them anew on every change of its model.
class TES_EXPORT BreadCrumbButton : public QPushButton
{
    Q_OBJECT

public:
    explicit BreadCrumbButton(QString const &text);
    ~BreadCrumbButton() override;

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
};

} // namespace TES
