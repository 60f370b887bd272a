// What `shape` and `coords` say.

#include "mapreader/PageShapes.h"

#include <QTest>

namespace {

/** The numbers of a list with what is written for each: "1:1, 0:a!", with a mark where it is not plain. */
QString Shown(QStringView list)
{
    QStringList shown;
    for (const PageCoordinate& one : CoordinatesIn(list)) {
        shown += QString::number(one.number, 'g', 17) + u':' + list.sliced(one.offset, one.length) +
                 (one.isPlain ? u"" : u"!");
    }
    return shown.join(QLatin1String(", "));
}

} // namespace

class tst_pageshapes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordsAreShapes_data();
    void wordsAreShapes();
    void listsAreReadAsBrowsersDo_data();
    void listsAreReadAsBrowsersDo();
    void shapesTakeTheirCoordinates();
    void longListsTakeTheirTime();
};

void tst_pageshapes::wordsAreShapes_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("shape");
    QTest::addColumn<bool>("isKnown");
    const auto row = [](const QString& word, PageShape shape, bool isKnown) {
        QTest::newRow(qPrintable(u'"' + word + u'"')) << word << int(shape) << isKnown;
    };
    QTest::newRow("none") << QString() << int(PageShape::Rectangle) << true;
    row("", PageShape::Rectangle, false);
    row("rect", PageShape::Rectangle, true);
    row("RECTANGLE", PageShape::Rectangle, true);
    row("circ", PageShape::Circle, true);
    row("Circle", PageShape::Circle, true);
    row("poly", PageShape::Polygon, true);
    row("polygon", PageShape::Polygon, true);
    row("default", PageShape::Default, true);
    row("polygone", PageShape::Rectangle, false);
    row(" circle", PageShape::Rectangle, false);
    // The Kelvin sign is no ASCII letter, though its small letter is one.
    row(QString::fromUtf8("\xe2\x84\xaa"), PageShape::Rectangle, false);
}

void tst_pageshapes::wordsAreShapes()
{
    QFETCH(const QString, word);
    const ShapeInEffect shape = ShapeOfWord(word);
    QTEST(int(shape.shape), "shape");
    QTEST(shape.isKnown, "isKnown");
}

void tst_pageshapes::listsAreReadAsBrowsersDo_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("shown");
    const auto row = [](const QString& list, const QString& shown) {
        QTest::newRow(qPrintable(list)) << list << shown;
    };
    row("", "");
    row("1,2,3,4", "1:1, 2:2, 3:3, 4:4");
    row("1, 2;3\t4", "1:1, 2:2, 3:3, 4:4");
    row("15,0 31,16", "15:15, 0:0, 31:31, 16:16");
    row(" 1,\r\n 2\n", "1:1, 2:2");
    row("1,,2,", "1:1, 2:2");
    row(",;1", "1:1");
    row("-5,-0", "-5:-5, 0:-0");
    row("1.5,.5,2.,-.25", "1.5:1.5, 0.5:.5, 2:2., -0.25:-.25");
    row("007", "7:007");
    row("2px,50%", "2:2px!, 50:50%!");
    row("a,b5,c", "0:a!, 5:b5!, 0:c!");
    row("+3", "3:+3!");
    row("1e2,1E+2,15e-1,1e,1e+", "100:1e2, 100:1E+2, 1.5:15e-1, 1:1e!, 1:1e+!");
    row("1e400,-1e400,1e-400", "0:1e400!, 0:-1e400!, 0:1e-400!");
    row("inf,nan,-inf,0x10", "0:inf!, 0:nan!, 0:-inf!, 0:0x10!");
    row("-,.,-.,--5,.e5", "0:-!, 0:.!, 0:-.!, 0:--5!, 0:.e5!");
    row("1-2,1.2.3", "1:1-2!, 1.2:1.2.3!");
    row("8051230", "8051230:8051230");
    row("<?php echo 5 ?>", "0:<?php!, 0:echo!, 5:5, 0:?>!");
    row("{{x}},1", "0:{{x}}!, 1:1");
    row(QString::fromUtf8("1\xc2\xa0,2"), QString::fromUtf8("1:1\xc2\xa0!, 2:2"));
    row("0.1,123456789012345678901234567890",
        "0.10000000000000001:0.1, 1.2345678901234568e+29:123456789012345678901234567890");
}

void tst_pageshapes::listsAreReadAsBrowsersDo()
{
    QFETCH(const QString, list);
    QTEST(Shown(list), "shown");
}

void tst_pageshapes::shapesTakeTheirCoordinates()
{
    QCOMPARE(FewestCoordinates(PageShape::Rectangle), 4);
    QCOMPARE(FewestCoordinates(PageShape::Circle), 3);
    QCOMPARE(FewestCoordinates(PageShape::Polygon), 6);
    QCOMPARE(FewestCoordinates(PageShape::Default), 0);
    QVERIFY(FitsShape(PageShape::Rectangle, 4) && !FitsShape(PageShape::Rectangle, 5));
    QVERIFY(FitsShape(PageShape::Circle, 3) && !FitsShape(PageShape::Circle, 2));
    QVERIFY(FitsShape(PageShape::Polygon, 6) && FitsShape(PageShape::Polygon, 1000));
    QVERIFY(!FitsShape(PageShape::Polygon, 7) && !FitsShape(PageShape::Polygon, 4));
    QVERIFY(FitsShape(PageShape::Default, 0) && !FitsShape(PageShape::Default, 4));
}

void tst_pageshapes::longListsTakeTheirTime()
{
    constexpr qsizetype length = 100'000;
    QCOMPARE(CoordinatesIn(QString(length, u'1')).size(), 1U);
    QCOMPARE(CoordinatesIn(QString(length, u'-')).size(), 1U);
    QCOMPARE(CoordinatesIn(QStringLiteral("1 ").repeated(length)).size(), std::size_t(length));
}

QTEST_GUILESS_MAIN(tst_pageshapes)
#include "tst_pageshapes.moc"
