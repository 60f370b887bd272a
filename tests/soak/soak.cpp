// Does the same work over and over in one process: a new page, a picture, three linked figures, Insert, a
// tag, saved links, preferences, preview and Save, each time in the next mode. After the first rounds, which
// fill Qt's caches, nothing may grow any more: no memory, no windows, no open files.
//
// cartolen-soak FOLDER PICTURE ROUNDS FIRST works in FOLDER; the first FIRST rounds are not counted.

#include "tests/soak/Usage.h"
#include "tests/support/ProgramDriver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmapCache>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

/**
 * How much the heap may grow, in bytes a round. The smallest thing that a round makes and could forget, an
 * entry of the area list with its texts, takes more; what is left is the chance of caches being filled.
 */
constexpr qint64 mostHeapBytesPerRound = 200;
/** The same for what the heap may go up and down by, however few rounds there are. */
constexpr qint64 heapPlay = 256 * 1024;
/** Resident memory also grows by holes between the pieces in use, which the heap's count does not show. */
constexpr qint64 residentPlay = 16 * 1024 * 1024;
constexpr int modes = 5;
/** Short enough that each round keeps what it has not saved yet. */
constexpr std::chrono::milliseconds keepingInterval(50);
constexpr int roundsBetweenReports = 50;

void ClickPart(const QWidget& window, const char* name)
{
    QTest::mouseClick(FindPart<QWidget>(window, QString::fromLatin1(name)), Qt::LeftButton);
}

/** The fields that the link dialog asks for in each mode. */
FieldTexts LinkTexts(JSMode mode, const QString& link)
{
    FieldTexts texts = { { "cmbLink", link } };
    switch (mode) {
    case JSDisabled:
        texts << FieldText{ "cmbTarget", QStringLiteral("_top") };
        break;
    case JSStatusBar:
        texts << FieldText{ "txtStatusBarMessage", QStringLiteral("Where it goes") };
        break;
    case JSSwitchImages:
        texts << FieldText{ "txtDefaultImage", QStringLiteral("a.gif") }
              << FieldText{ "txtSwitchImage", QStringLiteral("b.gif") };
        break;
    case JSTextArea:
        texts << FieldText{ "txtDefaultTAreaMessage", QStringLiteral("Hello") }
              << FieldText{ "txtSwitchingTAreaMessage", QStringLiteral("There") };
        break;
    case JSToolTips:
        texts << FieldText{ "txtToolTipMessage", QStringLiteral("A tip") };
        break;
    }
    return texts;
}

class Soak
{
public:
    Soak(const QString& folder, const QString& picture)
        : folder_(QDir(folder).absolutePath())
        , picture_(QFileInfo(picture).absoluteFilePath())
        , program_(folder)
    {
    }

    void Start()
    {
        QFile::remove(folder_.absoluteFilePath(QStringLiteral("Data/Links.dra")));
        program_.Hurry();
        program_.KeepWithin(keepingInterval);
        program_.StartProgram();
    }

    void Round(int number)
    {
        const auto mode = static_cast<JSMode>(number % modes);
        program_.NewPage();
        program_.WritePageFrame(QStringLiteral("<title>x</title>"));
        DrawMap(mode);
        InsertTag();
        KeepLinks();
        SetPreferences(number);
        SaveAndPreview();
        // What was kept is taken away in another thread, which has files open meanwhile.
        Check(
            QTest::qWaitFor([this] { return !folder_.exists(QStringLiteral("Data/Recovery")); }),
            QStringLiteral("what is saved stays kept"));
    }

private:
    void DrawMap(JSMode mode)
    {
        program_.OpenEditor();
        program_.OpenPicture(picture_);
        program_.ChooseMode(mode);
        program_.DrawRectangle(
            program_.At(8, 15), program_.At(32, 80), LinkTexts(mode, QStringLiteral("house.htm")));
        program_.DrawCircle(
            program_.At(50, 40), program_.At(60, 45), LinkTexts(mode, QStringLiteral("sun.htm")));
        program_.DrawPolygon(
            { program_.At(70, 85), program_.At(80, 25), program_.At(90, 85) },
            LinkTexts(mode, QStringLiteral("boat.htm")));
        program_.InsertMap();
        program_.CloseEditor();
        // What is kept on purpose is not what the soak is looking for.
        program_.ForgetHistory();
    }

    /** Inserts the first tag of the first category. */
    void InsertTag() const
    {
        const QWidget& window = program_.MainWindow();
        FindPart<QTabWidget>(window, QStringLiteral("SSTab1"))->setCurrentIndex(0);
        auto* const tree = FindPart<QTreeWidget>(window, QStringLiteral("TreeView1"));
        QTreeWidgetItem* const category = tree->topLevelItem(0)->child(0);
        category->setExpanded(true);
        tree->scrollToItem(category->child(0));
        const QPoint place = tree->visualItemRect(category->child(0)).center();
        const qsizetype before = Source().document()->characterCount();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
        category->setExpanded(false);
        Check(Source().document()->characterCount() > before, QStringLiteral("the tag was not inserted"));
    }

    void KeepLinks() const
    {
        const QWidget& window = program_.MainWindow();
        FindPart<QTabWidget>(window, QStringLiteral("SSTab1"))->setCurrentIndex(1);
        auto* const list = FindPart<QListWidget>(window, QStringLiteral("ListView1"));
        auto* const field = FindPart<QLineEdit>(window, QStringLiteral("txtCTags"));
        // What was typed before could be undone for ever, and takes memory for it.
        field->setText(QString());
        for (const char* const link : { "one.htm", "two.htm" }) {
            QTest::keyClicks(field, QString::fromLatin1(link));
            ClickPart(window, "btnAdd");
        }
        ClickPart(window, "btnSave");
        while (list->count() > 0) {
            list->setCurrentRow(list->count() - 1);
            ClickPart(window, "btnDelete");
        }
        ClickPart(window, "btnSave");
        FindPart<QTabWidget>(window, QStringLiteral("SSTab1"))->setCurrentIndex(0);
    }

    void SetPreferences(int number) const
    {
        QWidget& window = program_.MainWindow();
        window.activateWindow();
        Check(QTest::qWaitForWindowActive(&window), QStringLiteral("the main window takes no keys"));
        QTest::keyClick(&Source(), Qt::Key_P, Qt::ControlModifier);
        const QPointer<QDialog> options = window.findChild<QDialog*>(QStringLiteral("frmMapOptions"));
        Check(options != nullptr && options->isVisible(), QStringLiteral("there are no preferences"));
        auto* const field = FindPart<QLineEdit>(*options, QStringLiteral("txtIndentValue"));
        field->selectAll();
        QTest::keyClicks(field, QString::number(number % modes));
        ClickPart(*options, "cmdOK");
        ClickPart(*options, "cmdClose");
        Check(
            QTest::qWaitFor([&options] { return options == nullptr; }),
            QStringLiteral("the preferences do not close"));
    }

    void SaveAndPreview()
    {
        const QString page = folder_.absoluteFilePath(QStringLiteral("page.htm"));
        QFile::remove(page);
        program_.SavePage(page);
        QTest::keyClicks(&Source(), QStringLiteral("more"));
        program_.SaveAgain();
        QFile saved(page);
        QFile copy(program_.Preview());
        Check(saved.open(QIODevice::ReadOnly) && copy.open(QIODevice::ReadOnly), u"cannot read " + page);
        const QByteArray bytes = saved.readAll();
        Check(bytes.contains("more") && bytes.contains("</MAP>"), QStringLiteral("the page is not complete"));
        Check(copy.readAll() == bytes, QStringLiteral("the copy is another page"));
    }

    [[nodiscard]] QPlainTextEdit& Source() const
    {
        return *FindPart<QPlainTextEdit>(program_.MainWindow(), QStringLiteral("MapsText1"));
    }

    QDir folder_;
    QString picture_;
    ProgramDriver program_;
};

/** Compares the highest usage of a fifth of the counted rounds at their beginning and at their end. */
void CheckGrowth(const std::vector<Usage>& counted)
{
    const auto part = std::max<std::ptrdiff_t>(std::ssize(counted) / 5, 1);
    const auto most = [&counted, part](qint64 Usage::*what, bool atEnd) {
        const auto first = atEnd ? counted.end() - part : counted.begin();
        return (*std::max_element(
                   first, first + part,
                   [what](const Usage& a, const Usage& b) { return a.*what < b.*what; })).*
               what;
    };
    const qint64 rounds = (std::ssize(counted) - part) * modes;
    const auto growth = [&most](qint64 Usage::*what) { return most(what, true) - most(what, false); };
    Say(QStringLiteral("Growth in %1 rounds: heap %2 bytes, resident %3 bytes")
            .arg(rounds)
            .arg(growth(&Usage::heapBytes))
            .arg(growth(&Usage::residentBytes)));
    for (const Usage& usage : counted) {
        Check(
            usage.windows == counted[0].windows && usage.widgets == counted[0].widgets &&
                usage.files == counted[0].files,
            u"something was left behind: " + usage.ToText());
    }
    Check(
        growth(&Usage::heapBytes) <= heapPlay + mostHeapBytesPerRound * rounds,
        QStringLiteral("the heap grows"));
    Check(growth(&Usage::residentBytes) <= residentPlay, QStringLiteral("the process grows"));
}

void Play(const QStringList& arguments)
{
    const int rounds = arguments[3].toInt();
    const int first = arguments[4].toInt();
    Check(first > 0 && rounds > first, QStringLiteral("too few rounds"));
    Soak soak(arguments[1], arguments[2]);
    soak.Start();
    // All of its room at once, or it would be counted as growth.
    std::vector<Usage> counted;
    counted.reserve(std::size_t(rounds / modes));
    QElapsedTimer clock;
    clock.start();
    for (int round = 1; round <= rounds; ++round) {
        soak.Round(round);
        const Usage usage = MeasureUsage();
        // Each mode has its own number of widgets and size of page, so whole turns of the modes are compared.
        if (round > first && round % modes == 0) {
            counted.push_back(usage);
        }
        if (round == 1 || round == first || round == rounds || round % roundsBetweenReports == 0) {
            Say(QStringLiteral("Round %1 after %2 s: ").arg(round).arg(clock.elapsed() / 1000) +
                usage.ToText());
        }
    }
    CheckGrowth(counted);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc != 5) {
        Say(QStringLiteral("usage: cartolen-soak FOLDER PICTURE ROUNDS FIRST"));
        return 2;
    }
    // Qt's cache of pixmaps takes up to 10 MB in its own counting, which takes more rounds than these to
    // fill.
    QPixmapCache::setCacheLimit(0);
    try {
        Play(QApplication::arguments());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The soak failed: %s\n", error.what());
        return 1;
    }
    Say(QStringLiteral("The soak reached its end."));
    return 0;
}
