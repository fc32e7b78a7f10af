// SPDX-License-Identifier: MIT
#pragma once

#include "properties/IPropertyViewable.h"
#include "support/TestSceneObject.h"

namespace TES::Test {

// The test scene's simple object: a rectangle without children. It refuses addChild, and
// removeChild and moveChild do nothing. It shows a property view in the object editor (the
// container does not), made at the first call and deleted with the leaf.
class TestLeaf : public TestSceneObject, public IPropertyViewable
{
public:
    TestLeaf();
    ~TestLeaf() override;

    static QString Type();
    QString factoryType() const override;

    QList<QUuid> children(bool recursive) const override;
    bool addChild(QUuid const &id, unsigned int index) override;
    void removeChild(QUuid const &id) override;
    void moveChild(QUuid const &id, unsigned int index) override;
    PropertyView *propertyView() override;

private:
    PropertyView *_view = nullptr;
};

} // namespace TES::Test
