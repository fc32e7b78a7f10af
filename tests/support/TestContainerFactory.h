// SPDX-License-Identifier: MIT
#pragma once

#include "scene/SceneObjectFactory.h"

namespace TES::Test {

// Makes TestContainer objects under the type name "TestContainer".
class TestContainerFactory : public SceneObjectFactory
{
public:
    QString text() override;
    QString label() override;
    QIcon icon() override;
    QSharedPointer<SceneObject> create() override;
};

} // namespace TES::Test
