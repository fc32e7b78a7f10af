// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QSharedPointer>
#include <QString>

namespace TES {

class Screen;

// Makes the plug-in's screens. The plug-in installs its one factory with
// SceneManager::setScreenFactory while it initialises; without it no screen can be made. The
// host never deletes the factory.
class TES_EXPORT ScreenFactory
{
public:
    // A new screen with a fresh id, not yet in SceneManager's list, which takes the reference.
    // `name` may be empty: the screen then picks its own, or keeps none. A non-empty name has
    // passed no uniqueness test when it arrives; set it through the "name" property so that
    // the screen's validator sees it. Answering null makes the caller give up quietly.
    virtual QSharedPointer<Screen> create(QString const &name) = 0;

protected:
    ~ScreenFactory() = default;
};

} // namespace TES
