// SPDX-License-Identifier: MIT
#pragma once

#include "scene/Screen.h"

#include <QImage>
#include <QList>
#include <QPair>
#include <QStringList>
#include <QUuid>

namespace TES::Test {

// The test scene's screen: an ordered list of roots, each a test object without a parent,
// index 0 first. It raises the root events (ScreenRootEvent) around each change of that list,
// as a plug-in's screen must:
//   addRoot      ROOTABOUTTOADD / ROOTADDED, the root at its new place; refuses a null or
//                unknown id, a present root and an object that has a parent.
//   removeRoot   ROOTABOUTTOREMOVE, the root taken out of the list and its tree deleted through
//                SceneManager (deepest objects first, one CHILDABOUTTODELETE each), ROOTREMOVED.
//   moveRoot     ROOTABOUTTOMOVE at the old place / ROOTMOVED at the new; an index past the end
//                (0xFFFFFFFF included) moves nothing.
// The roots are saved inside the screen's JSON form as "roots", each with its factory's type,
// and made again through SceneManager on load, silently; "activeLayer" is saved when set. A
// screen that ends deletes its trees through SceneManager, if there is one.
//
// For tests: moveRoot calls are logged with their arguments, indexOfRoot calls are counted,
// and activated, deactivated and initializeNew are logged by name.
class TestScreen : public Screen
{
public:
    TestScreen();
    explicit TestScreen(QString const &name);
    ~TestScreen() override;

    QList<QUuid> roots() const override;
    unsigned int rootCount() const override;
    int indexOfRoot(QUuid const &id) const override;
    QUuid rootAt(unsigned int index) const override;
    bool addRoot(QUuid const &id, unsigned int index) override;
    QList<QUuid> objects() const override;
    void removeRoot(QUuid const &id) override;
    void removeAllRoots() override;
    void moveRoot(QUuid const &id, unsigned int index) override;
    void activated() override;
    void deactivated() override;
    QUuid pick(QPoint const &point, bool clip, QList<QUuid> exclude) override;
    QList<QUuid> pick(QRect const &rect, bool clip, QList<QUuid> exclude) override;
    // The screen size in white with the outline of every object, in black; with a design
    // surface, the size of its overlay with the page at ScreenOverlay::screenRect().
    QImage render(bool) override;
    QImage thumbnail(QSize const &size) override;
    void initializeNew() override;
    void save(QJsonObject &json) override;
    bool load(QJsonObject const &json) override;

    QList<QPair<QUuid, unsigned int>> moveLog;
    mutable int indexOfRootCalls = 0;
    QStringList calls;
    // Saved as "activeLayer" when set; nothing reads it.
    QUuid activeLayer;

private:
    void _deleteTree(QUuid const &id);

    QList<QUuid> _roots;
};

} // namespace TES::Test
