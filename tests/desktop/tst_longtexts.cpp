#include "tests/desktop/EveryWindow.h"
#include "tests/support/DialogRobot.h"
#include "widgets/ElidedLabel.h"

#include <QLabel>
#include <QTemporaryDir>

namespace {

const QString longName = QStringLiteral("/home/somebody/") + QString(60, u'w') + u'/' + QString(60, u'w') +
                         QStringLiteral("/index.html");

/** What of the label's text is seen. */
QString Shown(const QWidget* window, const QByteArray& name)
{
    const auto* const label = dynamic_cast<ElidedLabel*>(Find<QLabel>(window, name.constData()));
    return label != nullptr ? label->ShownText() : QStringLiteral("(all, as far as it goes)");
}

/** The tool tip that the user gets who rests on `part`; empty when there is none. */
QString TipOf(QWidget* part)
{
    QToolTip::hideText();
    const QPoint middle = part->rect().center();
    QHelpEvent rest(QEvent::ToolTip, middle, part->mapToGlobal(middle));
    QCoreApplication::sendEvent(part, &rest);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

} // namespace

/** Texts that their places have no room for. */
class tst_longtexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void previewEndsInAnEllipsis_data();
    void previewEndsInAnEllipsis();
    void previewIsToldWholeByItsToolTip_data() { previewEndsInAnEllipsis_data(); }
    void previewIsToldWholeByItsToolTip();
    void previewThatFitsHasNoToolTip();
    void longTagPaintsWithinItsFrame();
    void previewKeepsItsHeight();
    void longDocumentNameKeepsItsEnds();
    void documentNameIsWholeWhereThereIsRoom();
    void documentNameIsToldLetterForLetter_data();
    void documentNameIsToldLetterForLetter();

private:
    QLabel* Label(const QByteArray& name) { return Find<QLabel>(main_, name.constData()); }
    /** Makes a document of that name the open one. */
    void OpenDocument(const QString& fileName);

    std::unique_ptr<EveryWindow> every_;
    QWidget* main_ = nullptr;
};

void tst_longtexts::init()
{
    every_ = std::make_unique<EveryWindow>();
    main_ = every_->Show("main");
}

void tst_longtexts::cleanup()
{
    QToolTip::hideText();
    every_.reset();
}

void tst_longtexts::previewEndsInAnEllipsis_data()
{
    QTest::addColumn<QByteArray>("label");
    QTest::newRow("opening") << QByteArray("lblQTagsO");
    QTest::newRow("closing") << QByteArray("lblQTagsC");
}

void tst_longtexts::previewEndsInAnEllipsis()
{
    QFETCH(const QByteArray, label);
    const QString tag = u"<A " + QString(80, u'x') + u'>';
    Label(label)->setText(tag);
    QVERIFY(Shown(main_, label).startsWith(QStringLiteral("<A xxx")));
    QVERIFY(Shown(main_, label).endsWith(u'…'));
    QCOMPARE(Label(label)->text(), tag);
}

void tst_longtexts::previewIsToldWholeByItsToolTip()
{
    QFETCH(const QByteArray, label);
    const QString tag = u"<A " + QString(80, u'x') + u'>';
    Label(label)->setText(tag);
    const QString tip = TipOf(Label(label));
    // Shown as it stands, not taken for markup.
    QVERIFY(Qt::mightBeRichText(tip));
    QTextDocument shown;
    shown.setHtml(tip);
    QCOMPARE(shown.toRawText(), tag);
}

void tst_longtexts::previewThatFitsHasNoToolTip()
{
    Label("lblQTagsO")->setText(QStringLiteral("<B>"));
    QCOMPARE(Shown(main_, "lblQTagsO"), QStringLiteral("<B>"));
    QCOMPARE(TipOf(Label("lblQTagsO")), QString());
}

void tst_longtexts::longTagPaintsWithinItsFrame()
{
    auto* const label = Label("lblQTagsO");
    label->setText(QString(80, u'W'));
    // What is painted must be what is said to be shown.
    const QImage cut = label->grab().toImage();
    label->setText(Shown(main_, "lblQTagsO"));
    QCOMPARE(label->grab().toImage(), cut);
    label->clear();
    QVERIFY(label->grab().toImage() != cut);
}

void tst_longtexts::previewKeepsItsHeight()
{
    const auto* const tree = Find<QTreeWidget>(main_, "TreeView1");
    Label("lblQTagsO")->clear();
    Label("lblQTagsC")->clear();
    QCoreApplication::processEvents();
    const QSize before = tree->size();
    Label("lblQTagsO")->setText(QStringLiteral("<B>"));
    Label("lblQTagsC")->setText(QString(80, u'x'));
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCOMPARE(tree->size(), before);
}

void tst_longtexts::longDocumentNameKeepsItsEnds()
{
    const int width = main_->width();
    Label("StatusBar1_Panel3")->setText(longName + longName);
    QCoreApplication::processEvents();
    const QString shown = Shown(main_, "StatusBar1_Panel3");
    QVERIFY(shown.startsWith(QStringLiteral("/home/somebody/")));
    QVERIFY(shown.contains(u'…'));
    QVERIFY(shown.endsWith(QStringLiteral("/index.html")));
    QCOMPARE(Label("StatusBar1_Panel3")->text(), longName + longName);
    QCOMPARE(main_->width(), width);
}

void tst_longtexts::documentNameIsWholeWhereThereIsRoom()
{
    QCOMPARE(Shown(main_, "StatusBar1_Panel3"), QStringLiteral("New Document"));
}

void tst_longtexts::documentNameIsToldLetterForLetter_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("index.htm");
    QTest::newRow("like markup") << QStringLiteral("<b>bold & new.htm");
}

void tst_longtexts::documentNameIsToldLetterForLetter()
{
    QFETCH(const QString, name);
#ifdef Q_OS_WIN
    if (name.contains(u'<')) {
        QSKIP("no such names on this system");
    }
#endif
    QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    DialogRobot robot;
    robot.ChooseFile(path);
    QTest::keyClick(Find<QWidget>(main_, "MapsText1"), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(robot.Problems(), QString());
    QCOMPARE(Label("StatusBar1_Panel3")->text(), QDir::toNativeSeparators(path));
    const QString tip = TipOf(Label("StatusBar1_Panel3"));
    QTextDocument shown;
    if (Qt::mightBeRichText(tip)) {
        shown.setHtml(tip);
    } else {
        shown.setPlainText(tip);
    }
    QCOMPARE(shown.toRawText(), QDir::toNativeSeparators(path));
}

QTEST_MAIN(tst_longtexts)
#include "tst_longtexts.moc"
