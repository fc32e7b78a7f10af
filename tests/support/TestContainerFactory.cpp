// SPDX-License-Identifier: MIT
#include "support/TestContainerFactory.h"

#include "support/TestContainer.h"

namespace TES::Test {

QString TestContainerFactory::text()
{
    return TestContainer::Type();
}

QString TestContainerFactory::label()
{
    return QStringLiteral("Container");
}

QIcon TestContainerFactory::icon()
{
    return QIcon();
}

QSharedPointer<SceneObject> TestContainerFactory::create()
{
    return QSharedPointer<TestContainer>::create();
}

} // namespace TES::Test
