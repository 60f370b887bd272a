#include "shared/Rounding.h"

#include <QTest>

namespace {

/** Stands for no result in a table: no 16-bit number is as large. */
constexpr int nothing = 1'000'000;

int ValueOf(std::optional<qint16> result)
{
    return result ? *result : nothing;
}

} // namespace

class tst_rounding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positionsRoundToTheNearestTiesToEven_data();
    void positionsRoundToTheNearestTiesToEven();
    void numbersBeyond16BitsAreNone_data();
    void numbersBeyond16BitsAreNone();
    void distanceIsNoneWhereTheDifferenceOverflows_data();
    void distanceIsNoneWhereTheDifferenceOverflows();
};

void tst_rounding::positionsRoundToTheNearestTiesToEven_data()
{
    QTest::addColumn<double>("position");
    QTest::addColumn<int>("rounded");
    QTest::newRow("whole") << 7.0 << 7;
    QTest::newRow("below a tie") << 0.4999 << 0;
    QTest::newRow("above a tie") << 0.5001 << 1;
    QTest::newRow("tie down to 0") << 0.5 << 0;
    QTest::newRow("tie up to 2") << 1.5 << 2;
    QTest::newRow("tie down to 2") << 2.5 << 2;
    QTest::newRow("tie up to 4") << 3.5 << 4;
    QTest::newRow("negative tie up to 0") << -0.5 << 0;
    QTest::newRow("negative tie down to -2") << -1.5 << -2;
    QTest::newRow("negative tie up to -2") << -2.5 << -2;
    QTest::newRow("largest") << 32767.0 << 32767;
    QTest::newRow("just within the largest") << 32767.49 << 32767;
    QTest::newRow("tie beyond the largest") << 32767.5 << nothing;
    QTest::newRow("smallest") << -32768.0 << -32768;
    QTest::newRow("tie at the smallest") << -32768.5 << -32768;
    QTest::newRow("beyond the smallest") << -32768.51 << nothing;
    QTest::newRow("huge") << 1e300 << nothing;
    QTest::newRow("wraps to a small number in 16 bits") << 65536.0 << nothing;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << nothing;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << nothing;
}

void tst_rounding::positionsRoundToTheNearestTiesToEven()
{
    QFETCH(const double, position);
    QFETCH(const int, rounded);
    QCOMPARE(ValueOf(RoundToInt16(position)), rounded);
}

void tst_rounding::numbersBeyond16BitsAreNone_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("result");
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("largest") << 32767 << 32767;
    QTest::newRow("beyond the largest") << 32768 << nothing;
    QTest::newRow("smallest") << -32768 << -32768;
    QTest::newRow("beyond the smallest") << -32769 << nothing;
}

void tst_rounding::numbersBeyond16BitsAreNone()
{
    QFETCH(const int, number);
    QFETCH(const int, result);
    QCOMPARE(ValueOf(ToInt16(number)), result);
}

void tst_rounding::distanceIsNoneWhereTheDifferenceOverflows_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("distance");
    QTest::newRow("none at all") << 5 << 5 << 0;
    QTest::newRow("forwards") << 100 << 180 << 80;
    QTest::newRow("backwards") << 180 << 100 << 80;
    QTest::newRow("across zero") << -20 << 30 << 50;
    QTest::newRow("largest") << 0 << 32767 << 32767;
    QTest::newRow("one too far") << -1 << 32767 << nothing;
    QTest::newRow("one too far backwards") << 32767 << -1 << nothing;
    QTest::newRow("difference without its opposite") << 0 << -32768 << nothing;
    QTest::newRow("from one end to the other") << -32768 << 32767 << nothing;
}

void tst_rounding::distanceIsNoneWhereTheDifferenceOverflows()
{
    QFETCH(const int, from);
    QFETCH(const int, to);
    QFETCH(const int, distance);
    QCOMPARE(ValueOf(Distance(static_cast<qint16>(from), static_cast<qint16>(to))), distance);
}

QTEST_GUILESS_MAIN(tst_rounding)

#include "tst_rounding.moc"
