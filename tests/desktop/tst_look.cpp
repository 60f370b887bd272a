#include "app/LookStyle.h"
#include "tests/desktop/Colours.h"
#include "tests/desktop/EveryWindow.h"

#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>

namespace {

bool ShowsText(const QWidget* widget)
{
    const auto* const label = qobject_cast<const QLabel*>(widget);
    const auto* const button = qobject_cast<const QAbstractButton*>(widget);
    const auto* const group = qobject_cast<const QGroupBox*>(widget);
    const auto* const edit = qobject_cast<const QLineEdit*>(widget);
    return (label != nullptr && !label->text().trimmed().isEmpty()) ||
           (button != nullptr && !button->text().isEmpty() && button->icon().isNull()) ||
           (group != nullptr && !group->title().isEmpty()) ||
           (edit != nullptr && (!edit->text().isEmpty() || !edit->placeholderText().isEmpty())) ||
           qobject_cast<const QTabBar*>(widget) != nullptr ||
           qobject_cast<const QHeaderView*>(widget) != nullptr ||
           qobject_cast<const QMenuBar*>(widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(widget) != nullptr ||
           qobject_cast<const QTextEdit*>(widget) != nullptr;
}

/** The visible parts of `window` that show text and are in use. */
QWidgetList TextParts(const QWidget* window)
{
    QWidgetList parts;
    for (QWidget* const part : window->findChildren<QWidget*>()) {
        if (part->isVisible() && part->isEnabled() && part->window() == window && ShowsText(part)) {
            parts << part;
        }
    }
    return parts;
}

QString Called(const QWidget* part)
{
    return QStringLiteral("%1 %2 in %3")
        .arg(
            QString::fromLatin1(part->metaObject()->className()), part->objectName(),
            part->parentWidget()->objectName());
}

} // namespace

/** How the windows look where the desktop is dark, or its text large. */
class tst_look : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void textIsReadableOnADarkDesktop_data() { EveryWindow::Rows(); }
    void textIsReadableOnADarkDesktop();
    void fieldsAndMarksHaveAnEdgeOnADarkDesktop();
    void linesOfTheTagTreeAreSeen_data();
    void linesOfTheTagTreeAreSeen();
    void wordsThatAreNotFoundAreReadable();
    void iconsStandOut_data();
    void iconsStandOut();
    void largeTextIsNotCut_data();
    void largeTextIsNotCut();
    void headersFitTheirText();
    void missingFontsHaveStandIns_data();
    void missingFontsHaveStandIns();

private:
    QFont font_;
};

void tst_look::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    font_ = QApplication::font();
}

void tst_look::cleanup()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(font_);
}

void tst_look::textIsReadableOnADarkDesktop()
{
    QFETCH(const QByteArray, window);
    constexpr double readable = 4.5;
    QApplication::setPalette(DarkPalette());
    EveryWindow every;
    QWidget* const shown = every.Show(window);
    const QImage picture = shown->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const qreal ratio = picture.width() / qreal(shown->width());
    const QWidgetList parts = TextParts(shown);
    QVERIFY(!parts.isEmpty());
    for (QWidget* const part : parts) {
        const QRect place(part->mapTo(shown, QPoint()) * ratio, part->size() * ratio);
        const double contrast = BestContrast(picture.copy(place & picture.rect()));
        QVERIFY2(contrast >= readable, qPrintable(QStringLiteral("%1: %2").arg(Called(part)).arg(contrast)));
    }
}

void tst_look::fieldsAndMarksHaveAnEdgeOnADarkDesktop()
{
    constexpr double seen = 3;
    constexpr int edge = 3;
    QApplication::setStyle(new LookStyle);
    QApplication::setPalette(DarkPalette());
    const QRgb ground = DarkPalette().color(QPalette::Window).rgb();
    const std::array<std::unique_ptr<QWidget>, 3> parts = { std::make_unique<QLineEdit>(),
                                                            std::make_unique<QRadioButton>(),
                                                            std::make_unique<QCheckBox>() };
    for (const std::unique_ptr<QWidget>& part : parts) {
        const QImage picture = part->grab().toImage();
        double best = 1;
        for (int x = 0; x < edge; ++x) {
            best = std::max(best, Contrast(ground, picture.pixel(x, picture.height() / 2)));
        }
        QVERIFY2(
            best >= seen,
            qPrintable(
                QStringLiteral("%1: %2").arg(QLatin1String(part->metaObject()->className())).arg(best)));
    }
}

void tst_look::linesOfTheTagTreeAreSeen_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << QApplication::style()->standardPalette();
    QTest::newRow("dark") << DarkPalette();
}

void tst_look::linesOfTheTagTreeAreSeen()
{
    QFETCH(const QPalette, palette);
    constexpr double visible = 3;
    QApplication::setPalette(palette);
    EveryWindow every;
    const auto* const tree = Find<QTreeWidget>(every.Show("main"), "TreeView1");
    // Left of the texts there are only lines and boxes.
    const QRect first = tree->visualItemRect(tree->topLevelItem(0));
    const QRect left(0, 0, first.left(), tree->viewport()->height());
    const QImage lines = tree->viewport()->grab(left).toImage();
    QVERIFY2(BestContrast(lines) >= visible, qPrintable(QString::number(BestContrast(lines))));
}

void tst_look::wordsThatAreNotFoundAreReadable()
{
    constexpr double readable = 4.5;
    for (const QPalette& palette : { QApplication::style()->standardPalette(), DarkPalette() }) {
        QApplication::setPalette(palette);
        EveryWindow every;
        QWidget* const window = every.Show("help-contents");
        TypeIn(window, "txtFind", "no such words");
        const QImage before = Find<QLineEdit>(window, "txtFind")->grab().toImage();
        QTest::keyClick(Find<QLineEdit>(window, "txtFind"), Qt::Key_Return);
        const QImage after = Find<QLineEdit>(window, "txtFind")->grab().toImage();
        QVERIFY(after != before);
        QVERIFY2(BestContrast(after) >= readable, qPrintable(QString::number(BestContrast(after))));
    }
}

void tst_look::iconsStandOut_data()
{
    QTest::addColumn<QString>("file");
    EveryWindow every; // makes the icons known
    (void)every.Show("help-contents");
    for (const QString& place : { QStringLiteral(":/icons/"), QStringLiteral(":/help-icons/") }) {
        for (const QString& name : QDir(place).entryList({ QStringLiteral("*.svg") })) {
            // One has a ground of its own, the others are for one kind of window each.
            if (!name.startsWith(u"logo") && name != u"splash.svg") {
                QTest::newRow(qPrintable(name)) << place + name;
            }
        }
    }
}

/** On light and on dark windows a good part of an icon is told from the window. */
void tst_look::iconsStandOut()
{
    QFETCH(const QString, file);
    constexpr double visible = 3;
    constexpr double enough = 0.3;
    const QImage icon = QIcon(file).pixmap({ 24, 24 }, 2).toImage().convertToFormat(QImage::Format_ARGB32);
    for (const QPalette& palette : { QApplication::style()->standardPalette(), DarkPalette() }) {
        const QRgb window = palette.color(QPalette::Window).rgb();
        int drawn = 0;
        int seen = 0;
        for (int y = 0; y < icon.height(); ++y) {
            for (int x = 0; x < icon.width(); ++x) {
                if (qAlpha(icon.pixel(x, y)) == 255) {
                    ++drawn;
                    seen += Contrast(icon.pixel(x, y), window) >= visible ? 1 : 0;
                }
            }
        }
        QVERIFY(drawn > 0);
        QVERIFY2(seen >= enough * drawn, qPrintable(QString::number(100 * seen / drawn)));
    }
}

namespace {

/** What of `part` its size leaves no room for; empty when all is well. */
QString CutOff(const QWidget* part)
{
    QSize needed;
    if (const auto* const label = qobject_cast<const QLabel*>(part)) {
        if (label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) {
            return {}; // shows what fits of a path
        }
        needed = label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
    } else if (const auto* const button = qobject_cast<const QAbstractButton*>(part)) {
        needed = button->minimumSizeHint();
    } else if (const auto* const group = qobject_cast<const QGroupBox*>(part)) {
        needed = group->minimumSizeHint();
    } else if (const auto* const edit = qobject_cast<const QLineEdit*>(part)) {
        // Within another field, that one has the frame, and has to have its room too.
        const QWidget* const field = edit->hasFrame() ? edit : edit->parentWidget();
        const int lacking = field->minimumSizeHint().height() - field->height();
        needed = { 0, std::max(edit->fontMetrics().height(), edit->height() + lacking) };
    } else if (const auto* const bar = qobject_cast<const QTabBar*>(part)) {
        needed = bar->sizeHint();
    } else {
        return {};
    }
    if (part->width() >= needed.width() && part->height() >= needed.height()) {
        return {};
    }
    return QStringLiteral("%1 has %2 x %3 of %4 x %5")
        .arg(Called(part))
        .arg(part->width())
        .arg(part->height())
        .arg(needed.width())
        .arg(needed.height());
}

/** Whether `part` lies within all that it lies in, but for what can be scrolled to. */
bool IsInSight(const QWidget* part)
{
    for (const QWidget* outer = part; !outer->isWindow(); outer = outer->parentWidget()) {
        const QWidget* const scrolled = outer->parentWidget()->parentWidget();
        if (scrolled != nullptr && qobject_cast<const QScrollArea*>(scrolled) != nullptr) {
            return true;
        }
        if (!outer->parentWidget()->rect().contains(outer->geometry())) {
            return false;
        }
    }
    return true;
}

} // namespace

void tst_look::largeTextIsNotCut_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<qreal>("points");
    for (const qreal points : { 9.0, 11.0, 13.5, 18.0 }) {
        for (const char* const name : EveryWindow::names) {
            QTest::addRow("%s at %g", name, points) << QByteArray(name) << points;
        }
    }
}

void tst_look::largeTextIsNotCut()
{
    QFETCH(const QByteArray, window);
    QFETCH(const qreal, points);
    QFont font = font_;
    font.setPointSizeF(points);
    QApplication::setFont(font);
    EveryWindow every;
    QWidget* const shown = every.Show(window);
    const QWidgetList parts = TextParts(shown);
    QVERIFY(!parts.isEmpty());
    QStringList cut;
    for (const QWidget* const part : parts) {
        if (!CutOff(part).isEmpty()) {
            cut << CutOff(part);
        } else if (!IsInSight(part)) {
            cut << Called(part) + u" reaches out of the window";
        }
    }
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
}

void tst_look::headersFitTheirText()
{
    EveryWindow every;
    QWidget* const editor = every.Show("editor");
    const auto* const header = Find<QTreeView>(editor, "ListView1")->header();
    const auto fits = [header] {
        bool all = true;
        for (int column = 0; column < header->count(); ++column) {
            all = all && header->sectionSize(column) >= header->sectionSizeHint(column);
        }
        return all;
    };
    QVERIFY(fits());
    QFont larger = editor->font();
    larger.setPointSizeF(larger.pointSizeF() * 2);
    editor->setFont(larger);
    QTRY_VERIFY(fits());
}

void tst_look::missingFontsHaveStandIns_data()
{
    QTest::addColumn<QString>("family");
    QTest::newRow("Tahoma") << QStringLiteral("Tahoma");
    QTest::newRow("MS Sans Serif") << QStringLiteral("MS Sans Serif");
}

void tst_look::missingFontsHaveStandIns()
{
    QFETCH(const QString, family);
    const EveryWindow every;
    if (QFontDatabase::hasFamily(family)) {
        QCOMPARE(QFontInfo(QFont(family)).family(), family);
        return;
    }
    for (const QString& standIn : QFont::substitutes(family)) {
        if (QFontDatabase::hasFamily(standIn)) {
            QCOMPARE(QFontInfo(QFont(family)).family().toLower(), standIn.toLower());
            return;
        }
    }
    QSKIP("no stand-in is installed here");
}

QTEST_MAIN(tst_look)
#include "tst_look.moc"
