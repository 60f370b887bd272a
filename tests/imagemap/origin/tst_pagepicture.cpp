#include "imagemap/origin/PagePicture.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

/** Where the picture of a page's map is found. */
class tst_pagepicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pictureIsFound_data();
    void pictureIsFound();
    void dataIsInTheReference_data();
    void dataIsInTheReference();
    void lengthsArePixelsOrNothing_data();
    void lengthsArePixelsOrNothing();
    void groundHoldsAllAreas();

private:
    [[nodiscard]] QString Path(const QString& name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
};

void tst_pagepicture::initTestCase()
{
    QVERIFY(QDir(folder_.path()).mkpath(QStringLiteral("site/pics")));
    for (const char* const name : { "site/a b.gif", "site/pics/c.png", "site/100%.gif" }) {
        QFile file(Path(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

void tst_pagepicture::pictureIsFound_data()
{
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("found");
    const QString none;
    QTest::newRow("beside the page") << "pics/c.png" << none << "site/pics/c.png";
    QTest::newRow("blanks around") << " pics/c.png\n" << none << "site/pics/c.png";
    QTest::newRow("backslash") << "pics\\c.png" << none << "site/pics/c.png";
    QTest::newRow("encoded") << "a%20b.gif" << none << "site/a b.gif";
    QTest::newRow("blank in it") << "a b.gif" << none << "site/a b.gif";
    QTest::newRow("percent in it") << "100%.gif" << none << "site/100%.gif";
    QTest::newRow("with a query") << "pics/c.png?v=2" << none << "site/pics/c.png";
    QTest::newRow("from the base") << "c.png"
                                   << "pics/"
                                   << "site/pics/c.png";
    QTest::newRow("base in the net") << "pics/c.png"
                                     << "https://www.example.com/x/"
                                     << "site/pics/c.png";
    QTest::newRow("file URL") << QUrl::fromLocalFile(Path(QStringLiteral("site/pics/c.png"))).toString()
                              << none << "site/pics/c.png";
    QTest::newRow("not there") << "d.png" << none << none;
    QTest::newRow("in the net") << "https://www.example.com/pics/c.png" << none << none;
    QTest::newRow("a folder") << "pics" << none << none;
    QTest::newRow("nothing") << "" << none << none;
}

void tst_pagepicture::pictureIsFound()
{
    QFETCH(const QString, reference);
    QFETCH(const QString, base);
    QFETCH(const QString, found);
    const FoundPicture picture = FindPicture(reference, base, Path(QStringLiteral("site/page.htm")));
    QCOMPARE(QDir::fromNativeSeparators(picture.path), found.isEmpty() ? QString() : Path(found));
    QVERIFY(picture.data.isEmpty());
}

void tst_pagepicture::dataIsInTheReference_data()
{
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("base64") << "data:image/png;base64,YWJj" << QByteArray("abc");
    QTest::newRow("upper case") << "DATA:image/png;BASE64,YWJj" << QByteArray("abc");
    QTest::newRow("encoded base64") << "data:image/png;base64,YWJjZA%3D%3D" << QByteArray("abcd");
    QTest::newRow("plain") << "data:image/svg+xml,%3Csvg/%3E" << QByteArray("<svg/>");
    QTest::newRow("no comma") << "data:image/png" << QByteArray();
}

void tst_pagepicture::dataIsInTheReference()
{
    QFETCH(const QString, reference);
    QFETCH(const QByteArray, data);
    const FoundPicture picture = FindPicture(reference, {}, {});
    QCOMPARE(picture.data, data);
    QCOMPARE(picture.path, QString());
}

void tst_pagepicture::lengthsArePixelsOrNothing_data()
{
    QTest::addColumn<QString>("length");
    QTest::addColumn<int>("pixels");
    QTest::newRow("number") << "300" << 300;
    QTest::newRow("with a unit") << " 300px" << 300;
    QTest::newRow("decimals") << "300.7" << 300;
    QTest::newRow("share") << "50%" << -1;
    QTest::newRow("nought") << "0" << -1;
    QTest::newRow("word") << "auto" << -1;
    QTest::newRow("nothing") << "" << -1;
    QTest::newRow("too long") << "99999999999999999999" << -1;
}

void tst_pagepicture::lengthsArePixelsOrNothing()
{
    QFETCH(const QString, length);
    QFETCH(const int, pixels);
    QCOMPARE(PixelsOf(length).value_or(-1), pixels);
}

void tst_pagepicture::groundHoldsAllAreas()
{
    const MapArea area{ .Shape = AreaShape::Rectangle,
                        .Coordinates = { 10, 20, 299, 399 },
                        .Link = {},
                        .Target = {},
                        .Message = {} };
    QCOMPARE(SizeOfGround({}, {}, { area }), QSize(300, 400));
    QCOMPARE(SizeOfGround(500, {}, { area }), QSize(500, 400));
    QCOMPARE(SizeOfGround(50, 40, { area }), QSize(50, 40));
    QCOMPARE(SizeOfGround({}, {}, {}), QSize(100, 100));
    QVERIFY(SizeOfGround(1'000'000, 1'000'000, {}).width() < 100'000);
}

QTEST_APPLESS_MAIN(tst_pagepicture)
#include "tst_pagepicture.moc"
