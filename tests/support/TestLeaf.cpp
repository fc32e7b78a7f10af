// SPDX-License-Identifier: MIT
#include "support/TestLeaf.h"

#include "properties/view/PropertyView.h"

namespace TES::Test {

TestLeaf::TestLeaf()
{
    _types.insert(Type());
}

TestLeaf::~TestLeaf()
{
    // Before the model it listens to.
    delete _view;
}

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

PropertyView *TestLeaf::propertyView()
{
    if (!_view)
        _view = new PropertyView(model());
    return _view;
}

} // namespace TES::Test
