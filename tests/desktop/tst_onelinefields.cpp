#include "shared/OneLine.h"
#include "tests/desktop/EveryWindow.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>

/** A field of one line holds one, however a text comes into it. */
class tst_onelinefields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFieldHoldsOneLine_data() { EveryWindow::Rows(); }
    void everyFieldHoldsOneLine();
    void everyWayInGivesOneLine_data();
    void everyWayInGivesOneLine();
    void typedLineEndsGo();
    void lineEndBehindAPastedWordGoes();
    void pastingIsTakenBackInOneStep();

private:
    std::unique_ptr<EveryWindow> every_;
    /** The link dialog's list of links, whose field has all ways in. */
    [[nodiscard]] QLineEdit* LinkField()
    {
        every_ = std::make_unique<EveryWindow>();
        return Find<QComboBox>(every_->Show("link-1"), "cmbLink")->lineEdit();
    }
};

void tst_onelinefields::everyFieldHoldsOneLine()
{
    QFETCH(const QByteArray, window);
    EveryWindow every;
    for (QLineEdit* const field : every.Show(window)->findChildren<QLineEdit*>()) {
        // Not the parts of Qt's own dialogs.
        if (window == "font" || field->isReadOnly()) {
            continue;
        }
        if (qobject_cast<QAbstractSpinBox*>(field->parentWidget()) != nullptr) {
            // A field for numbers lets nobody but the program put in a text that is none.
            QGuiApplication::clipboard()->setText(QStringLiteral("1\r\n2\n"));
            field->selectAll();
            QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
            QVERIFY2(!HasLineEnd(field->text()), qPrintable(field->text()));
            continue;
        }
        field->setText(QStringLiteral("1\r\n2\n"));
        // The indentation takes numbers only.
        const bool isNumber = field->objectName() == u"txtIndentValue";
        QVERIFY2(
            field->text() == (isNumber ? QString() : QStringLiteral("1 2")),
            qPrintable(field->objectName() + u": " + field->text()));
    }
}

void tst_onelinefields::everyWayInGivesOneLine_data()
{
    using Enter = std::function<void(QLineEdit&, const QString&)>;
    QTest::addColumn<Enter>("enter");
    const auto row = [](const char* name, const Enter& enter) { QTest::newRow(name) << enter; };
    row("key of the clipboard", [](QLineEdit& field, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    });
    row("menu of the clipboard", [](QLineEdit& field, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        field.paste();
    });
    row("dropped", [](QLineEdit& field, const QString& text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&field, &enter);
        QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&field, &drop);
    });
    row("composed", [](QLineEdit& field, const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(&field, &event);
    });
    row("by a screen reader", [](QLineEdit& field, const QString& text) {
        QAccessible::queryAccessibleInterface(&field)->setText(QAccessible::Value, text);
    });
    row("by the program", [](QLineEdit& field, const QString& text) {
        static_cast<QComboBox*>(field.parentWidget())->setEditText(text);
    });
}

void tst_onelinefields::everyWayInGivesOneLine()
{
    QFETCH(const std::function<void(QLineEdit&, const QString&)>, enter);
    QLineEdit* const field = LinkField();
    QSignalSpy changed(field, &QLineEdit::textChanged);
    enter(*field, QStringLiteral("a\u2028b\u2029"));
    QCOMPARE(field->text(), QStringLiteral("a b"));
    for (const QList<QVariant>& told : changed) {
        QVERIFY(!told.constFirst().toString().contains(QChar(0x2028)));
    }
}

void tst_onelinefields::typedLineEndsGo()
{
    QLineEdit* const field = LinkField();
    for (const QChar character : QStringLiteral("a\u2028b\u0085")) {
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
    QCOMPARE(field->text(), QStringLiteral("ab"));
}

void tst_onelinefields::lineEndBehindAPastedWordGoes()
{
    QLineEdit* const field = LinkField();
    field->setText(QStringLiteral("http:///index.htm"));
    field->setCursorPosition(7);
    QGuiApplication::clipboard()->setText(QStringLiteral("example.org\r\n"));
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(field->text(), QStringLiteral("http://example.org/index.htm"));
    QCOMPARE(field->cursorPosition(), 18);
}

void tst_onelinefields::pastingIsTakenBackInOneStep()
{
    QLineEdit* const field = LinkField();
    QTest::keyClicks(field, QStringLiteral("abc"));
    field->setSelection(1, 1);
    QGuiApplication::clipboard()->setText(QStringLiteral("x\ny\n"));
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(field->text(), QStringLiteral("ax yc"));
    QCOMPARE(field->cursorPosition(), 4);
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field->text(), QStringLiteral("abc"));
    QTest::keyClick(field, Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(field->text(), QStringLiteral("ax yc"));
}

QTEST_MAIN(tst_onelinefields)
#include "tst_onelinefields.moc"
