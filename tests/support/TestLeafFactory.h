// SPDX-License-Identifier: MIT
#pragma once

#include "scene/SceneObjectFactory.h"

namespace TES::Test {

// Makes TestLeaf objects under the type name "TestLeaf".
class TestLeafFactory : public SceneObjectFactory
{
public:
    QString text() override;
    QString label() override;
    QIcon icon() override;
    QSharedPointer<SceneObject> create() override;
};

} // namespace TES::Test
