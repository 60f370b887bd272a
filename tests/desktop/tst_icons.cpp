#include "tests/desktop/Colours.h"
#include "tests/desktop/EveryWindow.h"

#include <QLabel>
#include <QMessageBox>
#include <QStyle>

namespace {

constexpr double visible = 3;

/** The two kinds of desktops. */
void PaletteRows(const QByteArray& name, const auto& add)
{
    add(name + ", light", QApplication::style()->standardPalette());
    add(name + ", dark", DarkPalette());
}

/** Where the icon of the current row of `view` is painted. */
QRect IconPlace(const QAbstractItemView* view)
{
    const QModelIndex row = view->currentIndex().siblingAtColumn(0);
    const QRect place = view->visualRect(row);
    const int side = view->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, view);
    return { place.left(), place.top(), side + 6, place.height() };
}

} // namespace

/** The icons of message boxes, of selected rows, and the logo. */
class tst_icons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void standardIconsAreSharp_data();
    void standardIconsAreSharp();
    void boxShowsItsIconInThePixelsOfTheScreen_data();
    void boxShowsItsIconInThePixelsOfTheScreen();
    void buttonsOfABoxDifferByTheirIcons();
    void iconOfTheSelectedRowStandsOut_data();
    void iconOfTheSelectedRowStandsOut();
    void logoHasNoGroundOfItsOwn_data();
    void logoHasNoGroundOfItsOwn();
    void logoFollowsTheDesktop();
};

void tst_icons::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

void tst_icons::cleanup()
{
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void tst_icons::standardIconsAreSharp_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<int>("side");
    QTest::newRow("information") << int(QStyle::SP_MessageBoxInformation) << 48;
    QTest::newRow("warning") << int(QStyle::SP_MessageBoxWarning) << 48;
    QTest::newRow("critical") << int(QStyle::SP_MessageBoxCritical) << 48;
    QTest::newRow("question") << int(QStyle::SP_MessageBoxQuestion) << 48;
    QTest::newRow("OK") << int(QStyle::SP_DialogOkButton) << 24;
    QTest::newRow("Yes") << int(QStyle::SP_DialogYesButton) << 24;
    QTest::newRow("No") << int(QStyle::SP_DialogNoButton) << 24;
    QTest::newRow("Cancel") << int(QStyle::SP_DialogCancelButton) << 24;
    QTest::newRow("Open") << int(QStyle::SP_DialogOpenButton) << 24;
    QTest::newRow("Save") << int(QStyle::SP_DialogSaveButton) << 24;
}

/** At every scaling there are as many pixels as are shown, and edges are edges: two pixels of an edge differ.
 */
void tst_icons::standardIconsAreSharp()
{
    QFETCH(const int, which);
    QFETCH(const int, side);
    const EveryWindow every;
    const QIcon icon = QApplication::style()->standardIcon(QStyle::StandardPixmap(which));
    for (const qreal ratio : { 1.0, 1.5, 2.0 }) {
        const QPixmap pixmap = icon.pixmap({ side, side }, ratio);
        QCOMPARE(pixmap.size(), QSize(side, side) * ratio);
        QCOMPARE(pixmap.devicePixelRatio(), ratio);
    }
    const QImage coarse = icon.pixmap({ side, side }, 1).toImage();
    const QImage fine = icon.pixmap({ side, side }, 2).toImage();
    QVERIFY(
        fine.convertToFormat(QImage::Format_ARGB32) !=
        coarse.scaled(fine.size()).convertToFormat(QImage::Format_ARGB32));
}

void tst_icons::boxShowsItsIconInThePixelsOfTheScreen_data()
{
    QTest::addColumn<int>("icon");
    QTest::newRow("information") << int(QMessageBox::Information);
    QTest::newRow("warning") << int(QMessageBox::Warning);
    QTest::newRow("critical") << int(QMessageBox::Critical);
    QTest::newRow("question") << int(QMessageBox::Question);
}

void tst_icons::boxShowsItsIconInThePixelsOfTheScreen()
{
    QFETCH(const int, icon);
    const EveryWindow every;
    QMessageBox box(QMessageBox::Icon(icon), QStringLiteral("Cartolen"), QStringLiteral("Text"));
    box.show();
    const auto* const label = Find<QLabel>(&box, "qt_msgboxex_icon_label");
    const int side = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
    const QPixmap shown = label->pixmap(Qt::ReturnByValue);
    QCOMPARE(shown.devicePixelRatio(), box.devicePixelRatioF());
    QCOMPARE(shown.size(), (QSizeF(side, side) * box.devicePixelRatioF()).toSize());
}

void tst_icons::buttonsOfABoxDifferByTheirIcons()
{
    const EveryWindow every;
    QList<QImage> seen;
    for (const QStyle::StandardPixmap which :
         { QStyle::SP_DialogYesButton, QStyle::SP_DialogNoButton, QStyle::SP_DialogCancelButton }) {
        const QImage image = QApplication::style()->standardIcon(which).pixmap(24, 24).toImage();
        QVERIFY(!seen.contains(image));
        seen << image;
    }
}

void tst_icons::iconOfTheSelectedRowStandsOut_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QByteArray>("view");
    QTest::addColumn<QPalette>("palette");
    const auto rows = [](const char* window, const char* view) {
        PaletteRows(window, [window, view](const QByteArray& name, const QPalette& palette) {
            QTest::newRow(name.constData()) << QByteArray(window) << QByteArray(view) << palette;
        });
    };
    rows("help-contents", "treContents");
    rows("help-search", "lstResults");
    rows("editor", "ListView1");
}

/** A good part of it is told from the selection's colour, and its shape is: there is an edge all around. */
void tst_icons::iconOfTheSelectedRowStandsOut()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, view);
    QFETCH(const QPalette, palette);
    constexpr double enough = 0.1;
    QApplication::setPalette(palette);
    EveryWindow every;
    auto* const list = Find<QAbstractItemView>(every.Show(window), view.constData());
    const QImage icon = list->viewport()->grab(IconPlace(list)).toImage();
    const QRgb ground = palette.color(QPalette::Highlight).rgb();
    int seen = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            seen += Contrast(icon.pixel(x, y), ground) >= visible ? 1 : 0;
        }
    }
    const double share = double(seen) / (icon.width() * icon.height());
    QVERIFY2(share >= enough, qPrintable(QString::number(share)));
}

void tst_icons::logoHasNoGroundOfItsOwn_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QByteArray>("logo");
    QTest::addColumn<QPalette>("palette");
    for (const auto& [window, logo] : { std::pair("main", "Picture1"), std::pair("links", "Picture2") }) {
        // Not every compiler lets a lambda capture the parts of a pair.
        const auto newRow = [shown = QByteArray(window),
                             named = QByteArray(logo)](const QByteArray& name, const QPalette& palette) {
            QTest::newRow(name.constData()) << shown << named << palette;
        };
        PaletteRows(logo, newRow);
    }
}

void tst_icons::logoHasNoGroundOfItsOwn()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, logo);
    QFETCH(const QPalette, palette);
    constexpr double readable = 4.5;
    QApplication::setPalette(palette);
    EveryWindow every;
    auto* const picture = Find<QLabel>(every.Show(window), logo.constData());
    QWidget* const tab = picture->parentWidget();
    const QRect place = picture->geometry();
    const QImage shown = tab->grab(place).toImage();
    const QImage beside = tab->grab(place.translated(-4, 0)).toImage();
    // At the left edge of the logo is what is left of it.
    QCOMPARE(shown.pixel(0, 0), beside.pixel(0, 0));
    QCOMPARE(shown.pixel(0, shown.height() - 1), beside.pixel(0, beside.height() - 1));
    const QImage letters = shown.copy(shown.width() / 3, 0, shown.width() * 2 / 3, shown.height());
    QVERIFY2(BestContrast(letters) >= readable, qPrintable(QString::number(BestContrast(letters))));
}

void tst_icons::logoFollowsTheDesktop()
{
    EveryWindow every;
    const auto* const logo = Find<QLabel>(every.Show("main"), "Picture1");
    const QImage light = logo->pixmap(Qt::ReturnByValue).toImage();
    QApplication::setPalette(DarkPalette());
    QTRY_VERIFY(logo->pixmap(Qt::ReturnByValue).toImage() != light);
}

QTEST_MAIN(tst_icons)
#include "tst_icons.moc"
