// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestSceneObject.h"

namespace TES::Test {

// The test scene's simple object: a rectangle without children. It refuses addChild, and
// removeChild and moveChild do nothing.
class TestLeaf : public TestSceneObject
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
};

} // namespace TES::Test
