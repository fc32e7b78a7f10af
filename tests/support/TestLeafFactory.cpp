// SPDX-License-Identifier: MIT
#include "support/TestLeafFactory.h"

#include "support/TestLeaf.h"

namespace TES::Test {

QString TestLeafFactory::text()
{
    return TestLeaf::Type();
}

QString TestLeafFactory::label()
{
    return QStringLiteral("Leaf");
}

QIcon TestLeafFactory::icon()
{
    return QIcon();
}

QSharedPointer<SceneObject> TestLeafFactory::create()
{
    return QSharedPointer<TestLeaf>::create();
}

} // namespace TES::Test
