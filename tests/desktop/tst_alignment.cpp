#include "tests/desktop/EveryWindow.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScreen>
#include <QToolBar>
#include <QToolTip>
#include <QWindow>

namespace {

/** The place of `part` within its window. */
QRect Place(const QWidget* part)
{
    return { part->mapTo(part->window(), QPoint()), part->size() };
}

/** The free room between the right edge of `left` and the left edge of `right`. */
int Between(const QWidget* left, const QWidget* right)
{
    return Place(right).left() - Place(left).right() - 1;
}

/** The free room between the lower edge of `upper` and the upper edge of `lower`. */
int Beneath(const QWidget* upper, const QWidget* lower)
{
    return Place(lower).top() - Place(upper).bottom() - 1;
}

/** The part of `window` whose name begins with `name` and ends with `number`. */
template<class Widget> Widget* Numbered(const QWidget* window, const char* name, const char* number)
{
    const QByteArray whole = QByteArray(name) + number;
    return Find<Widget>(window, whole.constData());
}

/** The middle of the first line of what a part at `top` shows, which is `height` high. */
int MiddleOfLine(const QWidget* part, int top)
{
    return Place(part).top() + top + part->fontMetrics().height() / 2;
}

} // namespace

/** Where the parts of windows stand, and what their windows have in common. */
class tst_alignment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void rowsHaveSomeAir_data();
    void rowsHaveSomeAir();
    void listsHaveTheSameFrame();
    void nothingMovesWhenNumbersCome();
    void pairsOfPositionsStandTogether();
    void nameOfTheMapHasAirAround();
    void explanationsBeginBesideTheirOptions();
    void inchesStandBesideMillimetres();
    void framesOfTheLinkDialogAreAlike_data();
    void framesOfTheLinkDialogAreAlike();
    void linkDialogHasNoHoles_data() { framesOfTheLinkDialogAreAlike_data(); }
    void linkDialogHasNoHoles();
    void dialogsAskForNoButtonsToResize_data();
    void dialogsAskForNoButtonsToResize();
    void mainWindowStaysUsable();
    void everyTextIsInOneTypeface_data() { EveryWindow::Rows(); }
    void everyTextIsInOneTypeface();

private:
    QFont font_;
};

void tst_alignment::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    font_ = QApplication::font();
    QFont usual = font_;
    usual.setPointSizeF(9);
    QApplication::setFont(usual);
}

void tst_alignment::cleanup()
{
    QFont usual = font_;
    usual.setPointSizeF(9);
    QApplication::setFont(usual);
}

void tst_alignment::rowsHaveSomeAir_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QByteArray>("view");
    const auto row = [](const char* window, const char* view) {
        QTest::newRow(view) << QByteArray(window) << QByteArray(view);
    };
    row("main", "TreeView1");
    row("links", "ListView1");
    row("help-contents", "treContents");
    row("help-index", "treKeywords");
    row("help-search", "lstResults");
    QTest::newRow("areas") << QByteArray("editor") << QByteArray("ListView1");
}

void tst_alignment::rowsHaveSomeAir()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, view);
    EveryWindow every;
    const auto* const list = Find<QAbstractItemView>(every.Show(window), view.constData());
    const int height = list->visualRect(list->model()->index(0, 0)).height();
    QVERIFY2(height >= 18 && height <= 20, qPrintable(QString::number(height)));
}

void tst_alignment::listsHaveTheSameFrame()
{
    const auto edge = [](QWidget* window, const char* name) {
        auto* const list = Find<QAbstractItemView>(window, name);
        list->clearFocus();
        return list->grab(QRect(0, list->height() / 2, 3, 1)).toImage();
    };
    EveryWindow every;
    const QImage tree = edge(every.Show("main"), "TreeView1");
    const QImage list = edge(every.Show("links"), "ListView1");
    const QImage help = edge(every.Show("help-contents"), "treContents");
    QCOMPARE(tree, list);
    QCOMPARE(help, list);
}

void tst_alignment::nothingMovesWhenNumbersCome()
{
    EveryWindow every;
    QWidget* const editor = every.Show("editor");
    const auto* const tab = Find<QWidget>(editor, "tabCreating");
    const auto places = [tab] {
        QHash<const QWidget*, QRect> all;
        for (const char* const name :
             { "frmOriginal", "Label3", "txtName", "Label4", "Label5", "ListView1", "frmStartPosition",
               "frmEndPosition", "frmDimensions", "frmCursor", "lblWidthPic", "lblHeightPic" }) {
            const auto* const part = Find<QWidget>(tab, name);
            all[part] = Place(part);
        }
        return all;
    };
    const auto before = places();
    for (const char* const name : { "lblFigures", "lblWidthPic", "lblHeightPic" }) {
        Find<QLabel>(tab, name)->setText(QStringLiteral("500"));
    }
    for (const char* const name : { "lblStartPosition", "lblEndPosition", "lblDimensions", "lblCursor" }) {
        for (const char* const number : { "1", "2" }) {
            Numbered<QLabel>(tab, name, number)->setText(QStringLiteral("1234,"));
        }
    }
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCOMPARE(places(), before);
}

void tst_alignment::pairsOfPositionsStandTogether()
{
    constexpr int most = 6;
    EveryWindow every;
    QWidget* const editor = every.Show("editor");
    for (const char* const name : { "lblStartPosition", "lblEndPosition", "lblDimensions", "lblCursor" }) {
        auto* const first = Numbered<QLabel>(editor, name, "1");
        auto* const second = Numbered<QLabel>(editor, name, "2");
        first->setText(QStringLiteral("12,"));
        second->setText(QStringLiteral("34"));
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        const int unused = first->width() - first->sizeHint().width();
        QVERIFY2(Between(first, second) + unused <= most, name);
        QVERIFY2(Between(first, second) >= 0, name);
    }
}

void tst_alignment::nameOfTheMapHasAirAround()
{
    EveryWindow every;
    const QWidget* const editor = every.Show("editor");
    const auto* const caption = Find<QLabel>(editor, "Label3");
    const auto* const field = Find<QLineEdit>(editor, "txtName");
    QVERIFY(Beneath(Find<QGroupBox>(editor, "frmOriginal"), caption) >= 8);
    QVERIFY(Beneath(caption, field) >= 2);
    QVERIFY(Beneath(field, Find<QLabel>(editor, "Label4")) >= 8);
}

void tst_alignment::explanationsBeginBesideTheirOptions()
{
    EveryWindow every;
    const QWidget* const dialog = every.Show("script-options");
    for (const char* const number : { "0", "1", "2", "3", "4" }) {
        const auto* const option = Numbered<QRadioButton>(dialog, "optJSOpt_", number);
        const auto* const label = Numbered<QLabel>(dialog, "lblJSOpt_", number);
        const int lineOfLabel = MiddleOfLine(label, label->contentsRect().top());
        QVERIFY2(std::abs(Place(option).center().y() - lineOfLabel) <= 1, number);
    }
}

void tst_alignment::inchesStandBesideMillimetres()
{
    EveryWindow every;
    const QWidget* const dialog = every.Show("preferences");
    const auto* const inches = Find<QLabel>(dialog, "lblInchIndValue");
    QVERIFY(Between(Find<QLabel>(dialog, "Label3"), inches) <= 32);
    QVERIFY(Between(inches, Find<QLabel>(dialog, "Label2")) <= 16);
}

void tst_alignment::framesOfTheLinkDialogAreAlike_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("last");
    const auto row = [](const char* window, const char* frame, const char* first, const char* last) {
        QTest::newRow(frame) << QByteArray(window) << QByteArray(frame) << QByteArray(first)
                             << QByteArray(last);
    };
    row("link-1", "frmStatusBarMessage", "Label8", "txtStatusBarMessage");
    row("link-2", "frmSwitchingImages", "Label6", "txtSwitchImage");
    row("link-3", "frmTextArea", "Label5", "txtSwitchingTAreaMessage");
    row("link-4", "frmToolTip", "Label3", "txtToolTipMessage");
}

void tst_alignment::framesOfTheLinkDialogAreAlike()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, frame);
    QFETCH(const QByteArray, first);
    EveryWindow every;
    const QWidget* const dialog = every.Show(window);
    const QRect common = Place(Find<QWidget>(dialog, "Frame1"));
    const QRect own = Place(Find<QWidget>(dialog, frame.constData()));
    QCOMPARE(own.left(), common.left());
    QCOMPARE(own.right(), common.right());
    QCOMPARE(
        Place(Find<QWidget>(dialog, first.constData())).left(),
        Place(Find<QWidget>(dialog, "Label1")).left());
}

/** What stands in a frame stands in its middle, and no two parts of it are far from each other. */
void tst_alignment::linkDialogHasNoHoles()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, frame);
    QFETCH(const QByteArray, first);
    QFETCH(const QByteArray, last);
    constexpr int most = 20;
    EveryWindow every;
    const QWidget* const dialog = every.Show(window);
    const auto* const target = Find<QLabel>(dialog, "Label2");
    const int unused = target->height() - target->heightForWidth(target->width());
    QVERIFY(Beneath(Find<QWidget>(dialog, "cmbLink"), target) + unused <= most);
    const auto isCentred = [dialog](const char* box, const char* upper, const char* lower) {
        const auto* const group = Find<QGroupBox>(dialog, box);
        const int above = Place(Find<QWidget>(dialog, upper)).top() - Place(group).top() -
                          group->fontMetrics().lineSpacing();
        const int below = Place(group).bottom() - Place(Find<QWidget>(dialog, lower)).bottom();
        return std::abs(above - below) <= 10;
    };
    QVERIFY(isCentred("Frame1", "Label1", "cmbTarget"));
    QVERIFY(isCentred(frame.constData(), first.constData(), last.constData()));
}

void tst_alignment::dialogsAskForNoButtonsToResize_data()
{
    QTest::addColumn<QByteArray>("window");
    for (const char* const name :
         { "link-0", "link-2", "script-options", "preferences", "font", "question" }) {
        QTest::newRow(name) << QByteArray(name);
    }
}

void tst_alignment::dialogsAskForNoButtonsToResize()
{
    QFETCH(const QByteArray, window);
    EveryWindow every;
    const QWidget* const dialog = every.Show(window);
    QVERIFY(dialog->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QVERIFY(!(dialog->windowFlags() & Qt::WindowMinMaxButtonsHint));
}

/** In the least size that the desktop allows, all parts of the main window are there. */
void tst_alignment::mainWindowStaysUsable()
{
    EveryWindow every;
    QWidget* const main = every.Show("main");
    const QSize least = main->windowHandle()->minimumSize();
    QVERIFY(least.width() <= main->screen()->availableSize().width());
    QVERIFY(least.height() <= main->screen()->availableSize().height());
    main->resize(least);
    QTRY_COMPARE(main->size(), least);
    for (const char* const name : { "Toolbar1_21", "TreeView1", "Frame3", "MapsText1", "Picture1" }) {
        const auto* const toolbar = Find<QToolBar>(main, "Toolbar1");
        auto* const action = main->findChild<QAction*>(QString::fromLatin1(name));
        const auto* const part =
            action != nullptr ? toolbar->widgetForAction(action) : Find<QWidget>(main, name);
        QVERIFY2(part->isVisible() && main->rect().contains(Place(part)), name);
    }
    const auto* const tree = Find<QTreeWidget>(main, "TreeView1");
    QVERIFY(tree->viewport()->height() >= 4 * tree->visualItemRect(tree->topLevelItem(0)).height());
    QVERIFY(Find<QWidget>(main, "MapsText1")->width() >= 200);
}

void tst_alignment::everyTextIsInOneTypeface()
{
    QFETCH(const QByteArray, window);
    EveryWindow every;
    if (QFontDatabase::hasFamily(QStringLiteral("Tahoma"))) {
        QSKIP("no stand-in is needed here");
    }
    QWidget* const shown = every.Show(window);
    const QString family = QFontInfo(QFont(QStringLiteral("Tahoma"))).family();
    const auto sources = shown->findChildren<QPlainTextEdit*>();
    QStringList others;
    QWidgetList parts = shown->findChildren<QWidget*>();
    const QMenu menu(shown);
    parts << shown;
    for (const QWidget* const part : std::as_const(parts)) {
        // Source is in letters of one width, the font dialog has a sample of any font.
        const bool isSource = std::ranges::any_of(sources, [part](const QPlainTextEdit* source) {
            return part == source || source->isAncestorOf(part);
        });
        const bool isSample = window == "font" && part->inherits("QLineEdit");
        if (!isSource && !isSample && QFontInfo(part->font()).family() != family) {
            others << QStringLiteral("%1 %2: %3")
                          .arg(
                              QString::fromLatin1(part->metaObject()->className()), part->objectName(),
                              QFontInfo(part->font()).family());
        }
    }
    QVERIFY2(others.isEmpty(), qPrintable(others.join(u'\n')));
    QCOMPARE(QFontInfo(menu.font()).family(), family);
    QCOMPARE(QFontInfo(QToolTip::font()).family(), family);
    QCOMPARE(QFontInfo(QMessageBox().font()).family(), family);
}

QTEST_MAIN(tst_alignment)
#include "tst_alignment.moc"
