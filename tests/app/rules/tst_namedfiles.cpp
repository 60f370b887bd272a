#include "app/rules/NamedFiles.h"

#include <QDir>
#include <QTest>
#include <QUrl>

class tst_namedfiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreNamedByArguments();
    void lastOfEachKindIsOpened();
};

void tst_namedfiles::filesAreNamedByArguments()
{
    const QString folder = QDir::rootPath() + u"here";
    const auto named = [&folder](const QStringList& arguments) {
        QStringList paths = FilesNamedBy(arguments, folder);
        for (QString& path : paths) {
            path = QDir::fromNativeSeparators(path);
        }
        return paths;
    };
    QCOMPARE(named({}), QStringList());
    QCOMPARE(named({ QStringLiteral("a.htm") }), QStringList(folder + u"/a.htm"));
    QCOMPARE(named({ QStringLiteral("../a b.htm") }), QStringList(QDir::rootPath() + u"a b.htm"));
    QCOMPARE(named({ folder + u"/x.gif", QString() }), QStringList(folder + u"/x.gif"));
    QCOMPARE(
        named({ QStringLiteral("-x"), QStringLiteral("--"), QStringLiteral("-y"), QStringLiteral("--") }),
        QStringList({ folder + u"/-y", folder + u"/--" }));
    const QUrl address = QUrl::fromLocalFile(folder + u"/gr\u00fc\u00dfe.htm");
    QCOMPARE(named({ address.toString(QUrl::FullyEncoded) }), QStringList(address.toLocalFile()));
}

void tst_namedfiles::lastOfEachKindIsOpened()
{
    const NamedFiles none = SortFiles({});
    QCOMPARE(none.Page + none.Picture, QString());
    const NamedFiles files =
        SortFiles({ QStringLiteral("/a.jpg"), QStringLiteral("/a.htm"), QStringLiteral("/b.GIF"),
                    QStringLiteral("/jpg"), QStringLiteral("/c.html") });
    QCOMPARE(files.Page, QStringLiteral("/c.html"));
    QCOMPARE(files.Picture, QStringLiteral("/b.GIF"));
}

QTEST_GUILESS_MAIN(tst_namedfiles)
#include "tst_namedfiles.moc"
