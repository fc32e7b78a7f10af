// SPDX-License-Identifier: MIT
#include "widgets/BreadCrumbButton.h"

namespace TES {

BreadCrumbButton::BreadCrumbButton(QString const &text) : QPushButton(text) {}

BreadCrumbButton::~BreadCrumbButton() = default;

void BreadCrumbButton::enterEvent(QEvent *event)
{
    setFlat(false);
    QPushButton::enterEvent(event);
}

void BreadCrumbButton::leaveEvent(QEvent *event)
{
    setFlat(true);
    QPushButton::leaveEvent(event);
}

} // namespace TES
