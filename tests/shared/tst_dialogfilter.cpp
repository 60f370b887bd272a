#include "shared/DialogFilter.h"

#include <QDir>
#include <QTest>

namespace {

/** Whether a choice shows a file, as Qt's dialog decides it: by the patterns in its last brackets. */
bool DoesShow(const QString& choice, const QString& fileName)
{
    const qsizetype open = choice.lastIndexOf('(');
    const QString patterns = choice.sliced(open + 1).chopped(1);
    return QDir::match(patterns.split(' ', Qt::SkipEmptyParts), fileName);
}

} // namespace

class tst_dialogfilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentsAreOfferedInFiveChoices();
    void picturesAreOfferedInThreeChoices();
    void choicesShowTheirFiles_data();
    void choicesShowTheirFiles();
    void emptyFilterOffersNothing();
};

void tst_dialogfilter::documentsAreOfferedInFiveChoices()
{
    const QStringList choices = { "HTML Documents(*.html;*.htm)(*.html *.htm)", "HTML(*.html)(*.html)",
                                  "HTM(*.htm)(*.htm)", "Text Files(*.txt)(*.txt)", "All Files(*.*)(*)" };
    QCOMPARE(DialogNameFilters(documentFilter), choices);
}

void tst_dialogfilter::picturesAreOfferedInThreeChoices()
{
    const QStringList choices = { "JPG and GIF Files(*.jpg;*.gif)(*.jpg *.gif)", "JPG Files(*.jpg)(*.jpg)",
                                  "GIF Files(*.Gif)(*.Gif)" };
    QCOMPARE(DialogNameFilters(pictureFilter), choices);
}

void tst_dialogfilter::choicesShowTheirFiles_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QList<int>>("documentChoices");
    QTest::addColumn<QList<int>>("pictureChoices");
    QTest::newRow("page") << "a.html" << QList<int>{ 0, 1, 4 } << QList<int>{};
    QTest::newRow("page with a short ending") << "a.htm" << QList<int>{ 0, 2, 4 } << QList<int>{};
    QTest::newRow("text") << "a.txt" << QList<int>{ 3, 4 } << QList<int>{};
    QTest::newRow("name without a dot") << "README" << QList<int>{ 4 } << QList<int>{};
    QTest::newRow("photograph") << "a.jpg" << QList<int>{ 4 } << QList<int>{ 0, 1 };
    QTest::newRow("photograph in capitals") << "A.JPG" << QList<int>{ 4 } << QList<int>{ 0, 1 };
    QTest::newRow("drawing") << "a.gif" << QList<int>{ 4 } << QList<int>{ 0, 2 };
    QTest::newRow("longer ending") << "a.jpeg" << QList<int>{ 4 } << QList<int>{};
}

void tst_dialogfilter::choicesShowTheirFiles()
{
    QFETCH(const QString, fileName);
    QFETCH(const QList<int>, documentChoices);
    QFETCH(const QList<int>, pictureChoices);
    const QStringList documents = DialogNameFilters(documentFilter);
    for (int i = 0; i < documents.size(); ++i) {
        QCOMPARE(DoesShow(documents[i], fileName), documentChoices.contains(i));
    }
    const QStringList pictures = DialogNameFilters(pictureFilter);
    for (int i = 0; i < pictures.size(); ++i) {
        QCOMPARE(DoesShow(pictures[i], fileName), pictureChoices.contains(i));
    }
}

void tst_dialogfilter::emptyFilterOffersNothing()
{
    QCOMPARE(DialogNameFilters(u""), QStringList());
}

QTEST_GUILESS_MAIN(tst_dialogfilter)

#include "tst_dialogfilter.moc"
