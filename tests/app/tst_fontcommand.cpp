#include "tests/support/WidgetDriving.h"

#include "app/FontDialog.h"
#include "tests/app/MainWindowFixture.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <algorithm>
#include <memory>

namespace {

constexpr double chosenSize = 18;

/** A family of this machine with a bold italic style. */
QString BoldItalicFamily()
{
    for (const QString& family : QFontDatabase::families()) {
        const QStringList styles = QFontDatabase::styles(family);
        const bool hasStyle = std::any_of(styles.begin(), styles.end(), [&family](const QString& style) {
            return QFontDatabase::bold(family, style) && QFontDatabase::italic(family, style);
        });
        if (hasStyle && !family.contains(u'[')) {
            return family;
        }
    }
    return {};
}

} // namespace

class tst_fontcommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogOffersEffectsAndColour();
    void chosenValuesAreGivenToTheSelection();
    void chosenValuesAreGivenToWhatIsTypedNext();
    void cancellingTheFirstTimeChangesNothing();
    void cancellingLaterGivesTheLastValuesAgain();
    void secondOpeningStartsWithTheLastValues();
    void automaticColourTakesAColourBack();
    void formattingIsNoChangeOfTheDocument();
    void newTextDoesNotTakeTheLookOfTheOld();
    void formattingIsNotSaved();

private:
    void Accept(const QString& color);
    void RunFont() { test_->ClickMenu("mnuEdit", "mnuEFont"); }
    /** How the character behind `position` looks. */
    QTextCharFormat FormatAt(int position);

    SourceEditor* Editor() { return test_->Editor(); }

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_fontcommand::init()
{
    if (BoldItalicFamily().isEmpty()) {
        QSKIP("This machine has no font with a bold italic style.");
    }
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
    Editor()->LoadText(QStringLiteral("abcdef"));
    Editor()->Select(1, 2);
}

void tst_fontcommand::cleanup()
{
    QCOMPARE(test_ != nullptr ? test_->robot.Problems() : QString(), QString());
    test_.reset();
}

/** The next font dialog gets a bold italic font of another size, both effects and `color`, and OK. */
void tst_fontcommand::Accept(const QString& color)
{
    test_->robot.Act([color](QDialog& dialog) {
        auto* const fontDialog = qobject_cast<QFontDialog*>(&dialog);
        QVERIFY(fontDialog != nullptr);
        QFont font(BoldItalicFamily());
        font.setPointSizeF(chosenSize);
        font.setBold(true);
        font.setItalic(true);
        fontDialog->setCurrentFont(font);
        for (QCheckBox* const effect : dialog.findChildren<QCheckBox*>()) {
            QTest::mouseClick(effect, Qt::LeftButton, {}, { 8, effect->height() / 2 });
        }
        auto* const colors = Find<QComboBox>(&dialog, "cmbColor");
        colors->setCurrentIndex(colors->findText(color));
        QTest::mouseClick(
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
}

QTextCharFormat tst_fontcommand::FormatAt(int position)
{
    QTextCursor cursor(Editor()->document());
    cursor.setPosition(position + 1);
    return cursor.charFormat();
}

void tst_fontcommand::dialogOffersEffectsAndColour()
{
    test_->robot.Act([](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("CommonDialog1"));
        QCOMPARE(dialog.findChildren<QCheckBox*>().size(), 2);
        auto* const colors = Find<QComboBox>(&dialog, "cmbColor");
        QVERIFY(colors->isVisible());
        QCOMPARE(colors->count(), 17);
        QCOMPARE(colors->currentText(), QStringLiteral("Automatic"));
        QVERIFY(!colors->accessibleName().isEmpty());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    RunFont();
}

void tst_fontcommand::chosenValuesAreGivenToTheSelection()
{
    Accept(QStringLiteral("Red"));
    RunFont();
    for (int position = 0; position < 6; ++position) {
        const QTextCharFormat format = FormatAt(position);
        const bool isSelected = position == 1 || position == 2;
        QCOMPARE(format.fontPointSize() == chosenSize, isSelected);
        QCOMPARE(format.fontWeight() == QFont::Bold, isSelected);
        QCOMPARE(format.fontItalic(), isSelected);
        QCOMPARE(format.fontStrikeOut(), isSelected);
        QCOMPARE(format.fontUnderline(), isSelected);
        QCOMPARE(format.foreground().color() == QColor(Qt::red), isSelected);
        QCOMPARE(format.fontFamilies().toStringList() == QStringList(BoldItalicFamily()), isSelected);
    }
    QCOMPARE(Editor()->SelText(), QStringLiteral("bc"));
}

void tst_fontcommand::chosenValuesAreGivenToWhatIsTypedNext()
{
    Editor()->Select(3, 0);
    Accept(QStringLiteral("Blue"));
    RunFont();
    test_->Type("X");
    QCOMPARE(Editor()->Text(), QStringLiteral("abcXdef"));
    QVERIFY(FormatAt(3).fontItalic());
    QCOMPARE(FormatAt(3).foreground().color(), QColor(Qt::blue));
    QVERIFY(!FormatAt(2).fontItalic());
    QVERIFY(!FormatAt(4).fontItalic());
}

void tst_fontcommand::cancellingTheFirstTimeChangesNothing()
{
    test_->robot.Cancel();
    RunFont();
    for (int position = 0; position < 6; ++position) {
        QVERIFY(!FormatAt(position).hasProperty(QTextFormat::FontPointSize));
        QVERIFY(!FormatAt(position).hasProperty(QTextFormat::ForegroundBrush));
    }
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

void tst_fontcommand::cancellingLaterGivesTheLastValuesAgain()
{
    Accept(QStringLiteral("Red"));
    RunFont();
    Editor()->Select(4, 1);
    test_->robot.Act([](QDialog& dialog) {
        // What is chosen before Cancel counts for nothing.
        auto* const colors = Find<QComboBox>(&dialog, "cmbColor");
        colors->setCurrentIndex(colors->findText(QStringLiteral("Lime")));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    RunFont();
    QCOMPARE(FormatAt(4).fontPointSize(), chosenSize);
    QVERIFY(FormatAt(4).fontItalic());
    QCOMPARE(FormatAt(4).foreground().color(), QColor(Qt::red));
    QVERIFY(!FormatAt(3).fontItalic());
    QVERIFY(!FormatAt(5).fontItalic());
}

void tst_fontcommand::secondOpeningStartsWithTheLastValues()
{
    Accept(QStringLiteral("Teal"));
    RunFont();
    test_->robot.Act([](QDialog& dialog) {
        const QFont font = qobject_cast<QFontDialog*>(&dialog)->currentFont();
        QCOMPARE(font.pointSizeF(), chosenSize);
        QVERIFY(font.bold());
        QVERIFY(font.italic());
        QVERIFY(font.strikeOut());
        QVERIFY(font.underline());
        QCOMPARE(Find<QComboBox>(&dialog, "cmbColor")->currentText(), QStringLiteral("Teal"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    RunFont();
}

void tst_fontcommand::automaticColourTakesAColourBack()
{
    Accept(QStringLiteral("Red"));
    RunFont();
    test_->robot.Act([](QDialog& dialog) {
        Find<QComboBox>(&dialog, "cmbColor")->setCurrentIndex(0);
        QTest::mouseClick(
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    RunFont();
    QCOMPARE(FormatAt(1).foreground().style(), Qt::NoBrush);
    QVERIFY(FormatAt(1).fontItalic());
}

void tst_fontcommand::formattingIsNoChangeOfTheDocument()
{
    Accept(QStringLiteral("Red"));
    RunFont();
    QVERIFY(FormatAt(1).fontItalic());
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(Editor()->Text(), QStringLiteral("abcdef"));
    test_->window.Source().undo();
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!FormatAt(1).fontItalic());
}

void tst_fontcommand::newTextDoesNotTakeTheLookOfTheOld()
{
    Editor()->Select(0, 6);
    Accept(QStringLiteral("Red"));
    RunFont();
    Editor()->LoadText(QStringLiteral("other"));
    QVERIFY(!FormatAt(1).fontItalic());
    test_->Type("X");
    QVERIFY(!FormatAt(0).fontItalic());
}

void tst_fontcommand::formattingIsNotSaved()
{
    Accept(QStringLiteral("Red"));
    RunFont();
    const QString path = test_->folder.Path(QStringLiteral("page.htm"));
    test_->robot.ChooseFile(path);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(path), QByteArray("abcdef\r\n"));
}

QTEST_MAIN(tst_fontcommand)
#include "tst_fontcommand.moc"
