#include "tests/desktop/EveryWindow.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QRadioButton>
#include <QScrollBar>

namespace {

QAccessibleInterface* FaceOf(QObject* part)
{
    QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(part);
    return face != nullptr && face->isValid() ? face : nullptr;
}

/** What takes the keys in `window` and can be seen; not the parts that controls consist of. */
QWidgetList Controls(const QWidget* window)
{
    QWidgetList controls;
    for (QWidget* const part : window->findChildren<QWidget*>()) {
        const bool isPart = part->objectName().startsWith(u"qt_") || part->focusProxy() != nullptr ||
                            qobject_cast<QScrollBar*>(part->parentWidget()) != nullptr;
        if (part->isVisible() && part->window() == window && !isPart &&
            (part->focusPolicy() & Qt::TabFocus) != 0) {
            controls << part;
        }
    }
    return controls;
}

} // namespace

/** What every window tells a screen reader. */
class tst_reader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsAndTheirControlsAreNamed_data() { EveryWindow::Rows(); }
    void windowsAndTheirControlsAreNamed();
    void partsOfListsAreNamed_data();
    void partsOfListsAreNamed();
    void focusIsTold_data() { EveryWindow::Rows(); }
    void focusIsTold();
    void buttonsTellWhetherTheyAreChecked();
    void listsTellTheirHeadersAndCells();
    void groupsNameTheModesFields_data();
    void groupsNameTheModesFields();
    void splashTellsItsTexts();
    void helpPageCanBeRead();
};

void tst_reader::windowsAndTheirControlsAreNamed()
{
    QFETCH(const QByteArray, window);
    EveryWindow every;
    QWidget* const shown = every.Show(window);
    QVERIFY(FaceOf(shown) != nullptr);
    QVERIFY(!FaceOf(shown)->text(QAccessible::Name).isEmpty());
    const QWidgetList controls = Controls(shown);
    QCOMPARE(controls.isEmpty(), window == "splash");
    for (QWidget* const control : controls) {
        if (window == "font" && control->objectName() != u"cmbColor") {
            continue; // Qt's own
        }
        QAccessibleInterface* const face = FaceOf(control);
        QVERIFY2(face != nullptr, qPrintable(control->objectName()));
        QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(control->objectName()));
        QVERIFY2(
            face->role() != QAccessible::NoRole && face->role() != QAccessible::Client,
            qPrintable(control->objectName()));
        QVERIFY2(face->state().focusable || !control->isEnabled(), qPrintable(control->objectName()));
    }
}

void tst_reader::partsOfListsAreNamed_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("link") << QByteArray("link-0") << QByteArray("cmbLink");
    QTest::newRow("target") << QByteArray("link-0") << QByteArray("cmbTarget");
    QTest::newRow("alignment") << QByteArray("attributes") << QByteArray("cmbAlign");
}

void tst_reader::partsOfListsAreNamed()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, list);
    EveryWindow every;
    auto* const box = Find<QComboBox>(every.Show(window), list.constData());
    const QString name = FaceOf(box)->text(QAccessible::Name);
    QVERIFY(!name.isEmpty());
    QCOMPARE(FaceOf(box->lineEdit())->text(QAccessible::Name), name);
    QCOMPARE(FaceOf(box->view())->text(QAccessible::Name), name);
}

void tst_reader::focusIsTold()
{
    QFETCH(const QByteArray, window);
    EveryWindow every;
    QWidget* const shown = every.Show(window);
    if (window == "splash") {
        QVERIFY(Controls(shown).isEmpty());
        return;
    }
    QVERIFY(QApplication::focusWidget() != nullptr);
    QVERIFY(FaceOf(shown)->state().active);
    QVERIFY(FaceOf(QApplication::focusWidget())->state().focused);
}

void tst_reader::buttonsTellWhetherTheyAreChecked()
{
    EveryWindow every;
    const QWidget* const options = every.Show("script-options");
    for (QRadioButton* const option : options->findChildren<QRadioButton*>()) {
        QAccessibleInterface* const face = FaceOf(option);
        QCOMPARE(face->role(), QAccessible::RadioButton);
        QVERIFY(face->state().checkable);
        QCOMPARE(bool(face->state().checked), option->isChecked());
        QCOMPARE(face->text(QAccessible::Name), option->text());
        QVERIFY(!face->text(QAccessible::Description).isEmpty());
    }
    const QWidget* const editor = options->parentWidget();
    QAccessibleInterface* const box = FaceOf(Find<QCheckBox>(editor, "Check1"));
    QCOMPARE(box->role(), QAccessible::CheckBox);
    QVERIFY(box->state().checkable && !box->state().checked);
    Find<QCheckBox>(editor, "Check1")->setChecked(true);
    QVERIFY(box->state().checked);
}

void tst_reader::listsTellTheirHeadersAndCells()
{
    EveryWindow every;
    const QWidget* const editor = every.Show("editor");
    QAccessibleTableInterface* const table = FaceOf(Find<QTreeView>(editor, "ListView1"))->tableInterface();
    QVERIFY(table != nullptr);
    QStringList headers;
    for (int column = 0; column < table->columnCount(); ++column) {
        headers << table->columnDescription(column).trimmed();
    }
    QCOMPARE(
        headers.mid(0, 4).join(u'|'),
        QStringLiteral("Figure :|Link to get conected to :|Target :|Coordinates :"));
    QVERIFY(!headers.value(4).isEmpty());
    QCOMPARE(table->rowCount(), 3);
    QStringList cells;
    for (int column = 0; column < table->columnCount(); ++column) {
        cells << table->cellAt(1, column)->text(QAccessible::Name);
    }
    QCOMPARE(cells.join(u'|'), QStringLiteral(" No: 2 Rectangle|house.htm|_top|10, 20, 300, 400|The house"));
    QVERIFY(table->cellAt(0, 0)->state().selected);
    QVERIFY(!table->cellAt(1, 0)->state().selected);
}

void tst_reader::groupsNameTheModesFields_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("status bar") << QByteArray("link-1") << "On Mouse Over - Status Bar Message"
                                << QByteArray("txtStatusBarMessage");
    QTest::newRow("images") << QByteArray("link-2") << "On Mouse Over - Switching Images"
                            << QByteArray("txtSwitchImage");
    QTest::newRow("text area") << QByteArray("link-3") << "On Mouse Over - Text Area Message"
                               << QByteArray("txtSwitchingTAreaMessage");
    QTest::newRow("tool tip") << QByteArray("link-4") << "On Mouse Over - Tool Tip Message"
                              << QByteArray("txtToolTipMessage");
}

void tst_reader::groupsNameTheModesFields()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QString, group);
    QFETCH(const QByteArray, field);
    EveryWindow every;
    const QWidget* const dialog = every.Show(window);
    auto* const edit = Find<QLineEdit>(dialog, field.constData());
    QAccessibleInterface* const outer = FaceOf(edit)->parent();
    QCOMPARE(outer->role(), QAccessible::Grouping);
    QCOMPARE(outer->text(QAccessible::Name), group);
    // The button that Enter presses is told.
    QVERIFY(FaceOf(Find<QPushButton>(dialog, "SSCmdOK"))->state().defaultButton);
}

void tst_reader::splashTellsItsTexts()
{
    EveryWindow every;
    QAccessibleInterface* const face = FaceOf(every.Show("splash"));
    QStringList texts;
    for (int i = 0; i < face->childCount(); ++i) {
        texts << face->child(i)->text(QAccessible::Name);
    }
    QCOMPARE(texts.join(u'|'), QStringLiteral("Cartolen|Version 4.0|Loading ..."));
}

void tst_reader::helpPageCanBeRead()
{
    EveryWindow every;
    QAccessibleInterface* const page = FaceOf(Find<QWidget>(every.Show("help-contents"), "PageView1"));
    QVERIFY(page->textInterface() != nullptr);
    QVERIFY(page->textInterface()->characterCount() > 100);
    QVERIFY(page->state().readOnly);
}

QTEST_MAIN(tst_reader)
#include "tst_reader.moc"
