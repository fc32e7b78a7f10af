// SPDX-License-Identifier: MIT
#include "support/TestLeaf.h"

namespace TES::Test {

TestLeaf::TestLeaf()
{
    _types.insert(Type());
}

TestLeaf::~TestLeaf() = default;

QString TestLeaf::Type()
{
    return QStringLiteral("TestLeaf");
}

QString TestLeaf::factoryType() const
{
    return Type();
}

QList<QUuid> TestLeaf::children(bool) const
{
    return {};
}

bool TestLeaf::addChild(QUuid const &, unsigned int)
{
    return false;
}

void TestLeaf::removeChild(QUuid const &) {}

void TestLeaf::moveChild(QUuid const &, unsigned int) {}

} // namespace TES::Test
