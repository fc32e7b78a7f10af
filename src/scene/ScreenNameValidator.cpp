// SPDX-License-Identifier: MIT
#include "scene/ScreenNameValidator.h"

#include "scene/SceneManager.h"
#include "scene/Screen.h"

namespace TES {

ScreenNameValidator::ScreenNameValidator(Screen *screen) : _screen(screen) {}

ScreenNameValidator::~ScreenNameValidator() = default;

bool ScreenNameValidator::validate(QVariant const &value) const
{
    if (!SceneManager::ip())
        return true;
    QUuid const other = SceneManager::ip()->screenByName(value.toString(), true);
    return other.isNull() || (_screen && other == _screen->id());
}

Screen *ScreenNameValidator::screen() const
{
    return _screen;
}

} // namespace TES
