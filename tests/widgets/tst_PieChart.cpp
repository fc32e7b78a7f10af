// SPDX-License-Identifier: MIT
#include "support/GoldenImage.h"
#include "widgets/PieChart.h"
#include "widgets/PieChartLegendRow.h"
#include "widgets/PieChartModel.h"

#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

struct Segment
{
    QString name;
    unsigned int value;
    QColor color;
};

// A model over a list of segments, with a fixed capacity.
class ListModel : public PieChartModel
{
public:
    ListModel(unsigned int capacity, QVector<Segment> segments)
        : _capacity(capacity), _segments(std::move(segments))
    {}

    unsigned int segmentCount() const override { return unsigned(_segments.size()); }
    unsigned int capacity() const override { return _capacity; }
    unsigned int usedTotal() const override
    {
        unsigned int sum = 0;
        for (Segment const &segment : _segments)
            sum += segment.value;
        return sum;
    }
    unsigned int segmentValue(unsigned int i) const override { return _segments[int(i)].value; }
    QString segmentName(unsigned int i) const override { return _segments[int(i)].name; }
    QColor segmentColor(unsigned int i) const override { return _segments[int(i)].color; }

    void setCapacity(unsigned int capacity)
    {
        _capacity = capacity;
        _notifyListeners();
    }
    void notify() { _notifyListeners(); }
    std::size_t listenerCount() const { return _listeners.size(); }

private:
    unsigned int _capacity;
    QVector<Segment> _segments;
};

} // namespace

class tst_PieChart : public QObject
{
    Q_OBJECT

private slots:
    void legend_data();
    void legend();
    void drawsAndFollowsItsModel();
};

void tst_PieChart::legend_data()
{
    QTest::addColumn<uint>("value");
    QTest::addColumn<uint>("capacity");
    QTest::addColumn<uint>("used");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");

    QTest::newRow("zero share") << 0u << 100u << 50u << "Heap - 0 bytes (0%)"
                                << "";
    // int(3 / 1000 * 100) = 0, int(1 / 2000 * 100) = 0: below one percent.
    QTest::newRow("3 of 1000") << 3u << 1000u << 3u << "Heap - 3 bytes (<1%)"
                               << "";
    QTest::newRow("0.05%") << 1u << 2000u << 1u << "Heap - 1 bytes (<1%)"
                           << "";
    QTest::newRow("25 of 100") << 25u << 100u << 25u << "Heap - 25 bytes (~25%)"
                               << "";
    // 2 / 3 * 100 = 66.67, truncated.
    QTest::newRow("2 of 3") << 2u << 3u << 2u << "Heap - 2 bytes (~66%)"
                            << "";
    QTest::newRow("full") << 100u << 100u << 100u << "Heap - 100 bytes (100%)"
                          << "";
    QTest::newRow("no capacity") << 40u << 0u << 40u << "Heap - 0 bytes"
                                 << "";
    QTest::newRow("overflow") << 40u << 100u << 101u << "Heap - "
                              << "Error";
}

void tst_PieChart::legend()
{
    QFETCH(uint, value);
    QFETCH(uint, capacity);
    QFETCH(uint, used);
    QFETCH(QString, text);
    QFETCH(QString, error);

    PieChartLegendRow const row = PieChartLegendRow::Make("Heap", value, capacity, used);
    QCOMPARE(row.text, text);
    QCOMPARE(row.error, error);
}

void tst_PieChart::drawsAndFollowsItsModel()
{
    // The middle segment is 0.05% of the capacity: a legend row, no slice; the rest of the
    // circle stays empty.
    ListModel first(2000, {{"Code", 900, QColor(200, 60, 60)},
                           {"Tiny", 1, QColor(60, 160, 60)},
                           {"Images", 500, QColor(60, 90, 200)}});
    ListModel second(100, {{"Other", 100, QColor(230, 180, 40)}});

    auto *chart = new PieChart();
    chart->resize(320, 200);
    chart->setModel(&first);
    chart->show();
    QVERIFY(QTest::qWaitForWindowExposed(chart));
    QCOMPARE(chart->getModel(), &first);
    QCOMPARE(first.listenerCount(), 1u);

    QImage const drawn = chart->grab().toImage();
    QString const why = GoldenImage::compare(drawn, "widgets/golden/pie_chart.png");
    QVERIFY2(why.isEmpty(), qPrintable(why));

    // A new model waits for the cache to drop; the old one keeps the chart as a listener but
    // is no longer heard.
    chart->setModel(&second);
    QCOMPARE(first.listenerCount(), 1u);
    QCOMPARE(second.listenerCount(), 1u);
    QCOMPARE(chart->grab().toImage(), drawn);
    first.notify();
    QCOMPARE(chart->grab().toImage(), drawn);
    second.notify();
    QImage const other = chart->grab().toImage();
    QVERIFY(other != drawn);

    // An update of the current model, and a resize, draw afresh.
    second.setCapacity(0);
    QImage const empty = chart->grab().toImage();
    QVERIFY(empty != other);
    chart->resize(200, 200);
    QCOMPARE(chart->grab().toImage().size(), QSize(200, 200));

    delete chart;
    QCOMPARE(second.listenerCount(), 0u);
    QCOMPARE(first.listenerCount(), 1u);
}

QTEST_MAIN(tst_PieChart)
#include "tst_PieChart.moc"
