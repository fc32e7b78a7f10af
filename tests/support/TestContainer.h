// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestSceneObject.h"

#include <QList>
#include <QPair>
#include <QUuid>

namespace TES::Test {

// The test scene's group: a transform object with an ordered list of children, index 0 first.
// It raises the scene events around each change of that list, as a plug-in's container must:
//   addChild      CHILDABOUTTOADD / CHILDADDED (parent's info, child's info at its new place);
//                 an object that has a parent elsewhere is reparented instead, with
//                 CHILDABOUTTOREPARENT / CHILDREPARENTED (old parent, child, new parent).
//   removeChild   CHILDABOUTTOREMOVE / CHILDREMOVED (parent's info, child's info at its place).
//   moveChild     CHILDABOUTTOMOVE (child at its old place) / CHILDMOVED (at its new place).
// addChild refuses a null or unknown id, its own id, a present child and an ancestor, and puts
// an id at the end for any index past it (0xFFFFFFFF included). moveChild ignores an index
// past the end, so raiseChild of the first child moves nothing; every call is logged all the
// same. Children are saved inside the container's JSON form as "children", each with its
// factory's type, and made again through SceneManager on load.
//
// Deleting a container does not delete its subtree; a deleted child leaves the list by itself.
class TestContainer : public TestSceneObject
{
public:
    TestContainer();
    ~TestContainer() override;

    static QString Type();
    QString factoryType() const override;

    QList<QUuid> children(bool recursive) const override;
    bool addChild(QUuid const &id, unsigned int index) override;
    void removeChild(QUuid const &id) override;
    void moveChild(QUuid const &id, unsigned int index) override;
    void save(QJsonObject &json) override;
    bool load(QJsonObject const &json) override;

    // Every moveChild call, with its arguments, whether it moved anything or not.
    QList<QPair<QUuid, unsigned int>> moveLog;

private:
    // A deleted child takes itself out of the list.
    friend class TestSceneObject;

    QList<QUuid> _children;
};

} // namespace TES::Test
