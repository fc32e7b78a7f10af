// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "scene/Object.h"
#include "scene/SceneManager.h"
#include "scene/TransformSceneObject.h"
#include "support/Services.h"
#include "support/TestLeaf.h"

#include <QJsonDocument>
#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

// A transform object that adds no tag of its own, to see the host's tags alone.
class BareTransform : public TransformSceneObject
{
public:
    QList<QUuid> children(bool) const override { return {}; }
    bool addChild(QUuid const &, unsigned int) override { return false; }
    void removeChild(QUuid const &) override {}
    void moveChild(QUuid const &, unsigned int) override {}
    QRect getRectangle() override { return QRect(); }
    void setRectangle(QRect const &) override {}

    bool validateName(QString const &current, QString const &proposed) const override
    {
        asked.append(current + ">" + proposed);
        return proposed != "refused";
    }

    mutable QStringList asked;
};

} // namespace

class tst_Object : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void freshObjectsAndTags();
    void nameGoesThroughTheValidator();

private:
    std::optional<Services> _services;
};

void tst_Object::init()
{
    _services.emplace(Services::Bus | Services::Scene);
}

void tst_Object::cleanup()
{
    _services.reset();
}

void tst_Object::freshObjectsAndTags()
{
    Object first;
    Object second;
    QVERIFY(!first.id().isNull());
    QVERIFY(first.id() != second.id());
    QCOMPARE(first.getName(), QString());
    QCOMPARE(first.type(), QString("Object"));

    // Sorted, not in order of construction.
    BareTransform bare;
    QCOMPARE(bare.type(), QString("Object:TransformSceneObject"));
    QVERIFY(bare.isType("TransformSceneObject"));
    QVERIFY(!bare.isType("object"));
    QCOMPARE(TestLeaf().type(), QString("Object:TestLeaf:TransformSceneObject"));

    TestLeaf leaf;
    QCOMPARE(leaf.model()->getValue("editorLocked"), QVariant(false));
    QCOMPARE(leaf.model()->getValue("editorHidden"), QVariant(false));
    QCOMPARE(leaf.model()->getValue("editorExpanded"), QVariant(true));
}

void tst_Object::nameGoesThroughTheValidator()
{
    BareTransform bare;
    QVERIFY(bare.setName("first"));
    QVERIFY(bare.setName("second"));
    QVERIFY(!bare.setName("refused"));
    QCOMPARE(bare.getName(), QString("second"));
    QCOMPARE(bare.asked, QStringList({">first", "first>second", "second>refused"}));
    // The answer is the property's: the same value again is refused.
    QVERIFY(!bare.setName("second"));
}

QTEST_MAIN(tst_Object)
#include "tst_Object.moc"
