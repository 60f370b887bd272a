#include "tests/app/MainWindowFixture.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <memory>

namespace {

QLineEdit* NameField(const QDialog& dialog)
{
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

void SetName(const QDialog& dialog, const QString& name)
{
    NameField(dialog)->setText(name);
}

void ClickButton(const QDialog& dialog, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
}

} // namespace

/** Names that the file dialogs take for something else, or refuse. */
class tst_filenames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nameWithQuotesIsSavedAsItStands_data();
    void nameWithQuotesIsSavedAsItStands();
    void documentWithQuotesInItsNameIsProposedAndSavedOver();
    void documentWithQuotesInItsNameIsKeptWhenTheUserSaysNo();
    void nameWithQuotesIsOpened_data();
    void nameWithQuotesIsOpened();
    void folderWithQuotesInItsNameIsGoneInto();
    void missingPictureWithQuotesInItsNameIsTold();
    void nameTooLongIsTold_data();
    void nameTooLongIsTold();
    void longestNameIsSaved();
    void dialogIsStillQtsOwn();

private:
    [[nodiscard]] QString Path(const QString& name) const { return test_->folder.Path(name); }
    void Save() { test_->Press(Qt::Key_S, Qt::ControlModifier); }

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_filenames::init()
{
#ifdef Q_OS_WIN
    QSKIP("names have no quotes here");
#endif
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
}

void tst_filenames::cleanup()
{
    if (test_ != nullptr) {
        QCOMPARE(test_->robot.Problems(), QString());
    }
    test_.reset();
}

void tst_filenames::nameWithQuotesIsSavedAsItStands_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved");
    const auto row = [](const char* name, const char* typed, const char* saved) {
        QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(saved);
    };
    row("in the middle", "a\"b.htm", "a\"b.htm");
    row("around a word", "the \"new\" page.htm", "the \"new\" page.htm");
    row("around the whole", "\"page.htm\"", "\"page.htm\"");
    row("at the end", "page\"", "page\".htm");
    row("in a folder", "pages/a\"b.htm", "pages/a\"b.htm");
}

void tst_filenames::nameWithQuotesIsSavedAsItStands()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, saved);
    QVERIFY(QDir(Path(QString())).mkdir(QStringLiteral("pages")));
    test_->Type("x");
    test_->robot.ChooseFile(typed);
    Save();
    QCOMPARE(test_->DocumentName(), Path(saved));
    QCOMPARE(BytesOf(Path(saved)), QByteArray("x\r\n"));
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_filenames::documentWithQuotesInItsNameIsProposedAndSavedOver()
{
    const QString path = Path(QStringLiteral("a\"b\".htm"));
    QVERIFY(WriteBytes(path, "old"));
    test_->Open(path);
    QCOMPARE(test_->DocumentName(), path);
    test_->Type("x");
    test_->robot.Act([](QDialog& dialog) { QTest::keyClick(NameField(dialog), Qt::Key_Return); });
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickMenu("mnuFile", "mnuFSaveAs");
    QCOMPARE(test_->robot.ProposedNames().constLast(), QStringLiteral("a\"b\".htm"));
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QVERIFY(test_->robot.Boxes().constFirst().text.contains(QStringLiteral("a\"b\".htm already exists")));
    QCOMPARE(BytesOf(path), QByteArray("xold\r\n"));
}

void tst_filenames::documentWithQuotesInItsNameIsKeptWhenTheUserSaysNo()
{
    const QString path = Path(QStringLiteral("a\"b\".htm"));
    QVERIFY(WriteBytes(path, "old"));
    test_->Type("x");
    test_->robot.Act([&path](QDialog& dialog) {
        SetName(dialog, path);
        ClickButton(dialog, QDialogButtonBox::Save);
        QVERIFY(dialog.isVisible());
        dialog.reject();
    });
    test_->robot.AnswerBox(QMessageBox::No);
    Save();
    QCOMPARE(BytesOf(path), QByteArray("old"));
}

void tst_filenames::nameWithQuotesIsOpened_data()
{
    QTest::addColumn<bool>("isPicked");
    QTest::newRow("typed") << false;
    QTest::newRow("picked from the list") << true;
}

void tst_filenames::nameWithQuotesIsOpened()
{
    QFETCH(const bool, isPicked);
    const QString path = Path(QStringLiteral("\"a\" and \"b\".htm"));
    QVERIFY(WriteBytes(path, "text"));
    QVERIFY(WriteBytes(Path(QStringLiteral("a")), "another"));
    if (isPicked) {
        test_->robot.Act([&path](QDialog& dialog) {
            auto* const list = dialog.findChild<QListView*>(QStringLiteral("listView"));
            const QString name = QFileInfo(path).fileName();
            QModelIndexList found;
            QTRY_VERIFY(!(found = list->model()->match(
                              list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name, 1,
                              Qt::MatchExactly))
                             .isEmpty());
            const QPoint place = list->visualRect(found.constFirst()).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
            ClickButton(dialog, QDialogButtonBox::Open);
        });
        test_->Press(Qt::Key_O, Qt::ControlModifier);
    } else {
        test_->Open(path);
    }
    QCOMPARE(test_->DocumentName(), path);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("text"));
}

void tst_filenames::folderWithQuotesInItsNameIsGoneInto()
{
    QVERIFY(QDir(Path(QString())).mkdir(QStringLiteral("my \"pages\"")));
    test_->Type("x");
    test_->robot.Act([](QDialog& dialog) {
        auto& files = static_cast<QFileDialog&>(dialog);
        auto* const field = NameField(dialog);
        field->setText(QStringLiteral("my \"pages\""));
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(files.directory().dirName(), QStringLiteral("my \"pages\""));
        field->setText(QStringLiteral("page.htm"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    Save();
    QCOMPARE(BytesOf(Path(QStringLiteral("my \"pages\"/page.htm"))), QByteArray("x\r\n"));
}

void tst_filenames::missingPictureWithQuotesInItsNameIsTold()
{
    test_->window.OpenImageMapEditor();
    auto* const editor = test_->window.findChild<QWidget*>(QStringLiteral("frmImageMap"));
    QVERIFY(editor != nullptr);
    QVERIFY(WriteBytes(Path(QStringLiteral("b.gif")), "no picture"));
    test_->robot.Act([this](QDialog& dialog) {
        SetName(dialog, Path(QStringLiteral("a\"b.gif")));
        ClickButton(dialog, QDialogButtonBox::Open);
        QVERIFY(dialog.isVisible());
        dialog.reject();
    });
    test_->robot.AnswerBox(QMessageBox::Ok);
    editor->findChild<QAction*>(QStringLiteral("mnuOpenImage"))->trigger();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QVERIFY2(
        test_->robot.Boxes().constFirst().text.contains(QStringLiteral("a\"b.gif")),
        qPrintable(test_->robot.Boxes().constFirst().text));
    editor->close();
}

void tst_filenames::nameTooLongIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("characters") << QString(300, u'a');
    // As the file system counts: in bytes.
    QTest::newRow("bytes") << QString(200, QChar(0x00E9));
    QTest::newRow("with quotes") << QString(u"\"" + QString(300, u'a') + u"\"");
    QTest::newRow("by its ending") << QString(253, u'a');
}

void tst_filenames::nameTooLongIsTold()
{
    QFETCH(const QString, name);
    test_->Type("x");
    test_->robot.Act([&name](QDialog& dialog) {
        auto* const field = NameField(dialog);
        field->setText(name);
        ClickButton(dialog, QDialogButtonBox::Save);
        QVERIFY(dialog.isVisible());
        // What was typed is there to be made shorter.
        QCOMPARE(field->text(), name);
        field->setText(QStringLiteral("short.htm"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    test_->robot.AnswerBox(QMessageBox::Ok);
    Save();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->robot.Boxes().constFirst().text, QStringLiteral("The file name is too long !"));
    QCOMPARE(test_->robot.Boxes().constFirst().icon, QMessageBox::Warning);
    QCOMPARE(BytesOf(Path(QStringLiteral("short.htm"))), QByteArray("x\r\n"));
}

void tst_filenames::longestNameIsSaved()
{
    const QString name = QString(251, u'a') + u".htm";
    test_->Type("x");
    test_->robot.Act([&name](QDialog& dialog) {
        auto* const field = NameField(dialog);
        field->setText(name);
        QTest::keyClick(field, Qt::Key_Return);
    });
    Save();
    QCOMPARE(BytesOf(Path(name)), QByteArray("x\r\n"));
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_filenames::dialogIsStillQtsOwn()
{
    QByteArray className;
    test_->robot.Act([&className](QDialog& dialog) {
        className = dialog.metaObject()->className();
        dialog.reject();
    });
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(className, QByteArray("QFileDialog"));
}

QTEST_MAIN(tst_filenames)
#include "tst_filenames.moc"
