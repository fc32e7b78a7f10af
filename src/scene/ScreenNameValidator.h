// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyValidator.h"
#include "tessera_export.h"

namespace TES {

class Screen;

// Keeps screen names unique regardless of case: the validator of a screen's "name" property.
// Every rename passes it, through SceneManager::setScreenName or the property editor, so this
// is the one place where uniqueness is guarded. The screen holds it by value and points it at
// itself.
class TES_EXPORT ScreenNameValidator : public PropertyValidator
{
public:
    explicit ScreenNameValidator(Screen *screen);
    ~ScreenNameValidator() override;

    // False when another screen has the name, compared without regard to case; an empty name
    // and the screen's own name in another case pass.
    bool validate(QVariant const &value) const override;
    Screen *screen() const;

private:
    Screen *_screen;
};

} // namespace TES
