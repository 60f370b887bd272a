#include "shared/Paths.h"

#include <QDir>
#include <QTest>

class tst_paths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileNameStandsBehindTheLastSeparator_data();
    void fileNameStandsBehindTheLastSeparator();
    void fileNameLeavesThePathAsItWas();
    void pathBecomesTheFormAPageRefersToItBy_data();
    void pathBecomesTheFormAPageRefersToItBy();
    void pathIsChangedInPlaceAndReturned();
};

void tst_paths::fileNameStandsBehindTheLastSeparator_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::newRow("drive and folder") << R"(C:\pics\map.gif)"
                                      << "map.gif";
    QTest::newRow("folder") << R"(pics\map.gif)"
                            << "map.gif";
    QTest::newRow("root of the current drive") << R"(\map.gif)"
                                               << "map.gif";
    QTest::newRow("server") << R"(\\server\share\map.gif)"
                            << "map.gif";
    QTest::newRow("name alone") << "map.gif"
                                << "map.gif";
    QTest::newRow("drive without a separator") << "C:map.gif"
                                               << "C:map.gif";
    QTest::newRow("folder alone") << R"(C:\pics\)"
                                  << "";
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("blanks stay") << R"(C:\my pics\ my map.gif )"
                                 << " my map.gif ";
    QTest::newRow("path as this system writes it")
        << QDir::toNativeSeparators("/home/u/map.gif") << "map.gif";
    QTest::newRow("path of a system with the other separator") << "/home/u/map.gif"
                                                               << "map.gif";
    QTest::newRow("drive with the other separator") << "C:/pics/map.gif"
                                                    << "map.gif";
    QTest::newRow("drive with both separators") << R"(C:\my/pics/map.gif)"
                                                << "map.gif";
    QTest::newRow("separator of this system only at the end") << R"(/home/u\map.gif)"
                                                              << "map.gif";
    QTest::newRow("address") << "http://example.org/pics/off.gif"
                             << "http://example.org/pics/off.gif";
    QTest::newRow("reference from the page") << "pics/off.gif"
                                             << "pics/off.gif";
    QTest::newRow("reference from the folder above") << "../pics/off.gif"
                                                     << "../pics/off.gif";
    QTest::newRow("reference behind a folder") << R"(pics\a/off.gif)"
                                               << "a/off.gif";
    QTest::newRow("a word and a colon are no drive") << "ab:/pics/off.gif"
                                                     << "ab:/pics/off.gif";
    QTest::newRow("no letter is no drive") << "1:/pics/off.gif"
                                           << "1:/pics/off.gif";
    QTest::newRow("drive and a folder without its root") << "C:pics/off.gif"
                                                         << "C:pics/off.gif";
}

void tst_paths::fileNameStandsBehindTheLastSeparator()
{
    QFETCH(const QString, path);
    QFETCH(const QString, name);
    QCOMPARE(FileNameOnly(path), name);
}

void tst_paths::fileNameLeavesThePathAsItWas()
{
    QString path = R"(C:\pics\map.gif)";
    (void)FileNameOnly(path);
    QCOMPARE(path, QString(R"(C:\pics\map.gif)"));
}

void tst_paths::pathBecomesTheFormAPageRefersToItBy_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("url");
    QTest::newRow("drive") << R"(C:\pics\map.gif)"
                           << "file:///C|/pics/map.gif";
    QTest::newRow("folder") << R"(pics\map.gif)"
                            << "pics/map.gif";
    QTest::newRow("root of the current drive") << R"(\pics\map.gif)"
                                               << "/pics/map.gif";
    QTest::newRow("server") << R"(\\server\map.gif)"
                            << "//server/map.gif";
    QTest::newRow("only the first drive") << R"(C:\a:\b)"
                                          << "file:///C|/a:/b";
    QTest::newRow("drive in the middle") << R"(x\C:\b)"
                                         << "file:///x/C|/b";
    QTest::newRow("drive without a separator") << R"(C:pics\map.gif)"
                                               << "C:pics/map.gif";
    QTest::newRow("drive with the other separator") << "C:/pics/map.gif"
                                                    << "C:/pics/map.gif";
    QTest::newRow("path as this system writes it")
        << QDir::toNativeSeparators("/home/u/map.gif") << "/home/u/map.gif";
    QTest::newRow("blanks and percent signs stay") << R"(C:\my pics\100%.gif)"
                                                   << "file:///C|/my pics/100%.gif";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_paths::pathBecomesTheFormAPageRefersToItBy()
{
    QFETCH(QString, path);
    QFETCH(const QString, url);
    QCOMPARE(PathToFileUrl(path), url);
}

void tst_paths::pathIsChangedInPlaceAndReturned()
{
    QString path = R"(C:\pics\map.gif)";
    const QString* const returned = &PathToFileUrl(path);
    QCOMPARE(returned, &path);
    QCOMPARE(path, QString("file:///C|/pics/map.gif"));
}

QTEST_GUILESS_MAIN(tst_paths)

#include "tst_paths.moc"
