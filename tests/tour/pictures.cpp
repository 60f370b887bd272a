// Makes the pictures of the help book: runs the program offscreen, uses it as a person would, and grabs its
// windows.
//
// cartolen-pictures FOLDER PICTURE leaves them in FOLDER; help/make-pictures calls it.

#include "tests/support/ProgramDriver.h"
#include "tests/tour/Regions.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QHash>
#include <QImage>
#include <QLineEdit>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>

namespace {

/** The room that a page of the book has for a picture. */
constexpr int pictureWidth = 680;
constexpr int mainHeight = 400;
constexpr int editorHeight = 740;

/** `picture` in its 256 most frequent colours, which are enough for windows and take a third of the room. */
QImage WithFewColours(const QImage& picture)
{
    constexpr qsizetype colours = 256;
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            ++counts[pixels.pixel(x, y)];
        }
    }
    QList<QRgb> table = counts.keys();
    std::sort(table.begin(), table.end(), [&counts](QRgb left, QRgb right) {
        return std::pair(counts[left], left) > std::pair(counts[right], right);
    });
    table.resize(std::min(table.size(), colours));
    return pixels.convertToFormat(QImage::Format_Indexed8, table, Qt::ThresholdDither | Qt::AvoidDither);
}

class Pictures
{
public:
    Pictures(const QString& folder, const QString& picture)
        : folder_(QDir(folder).absolutePath()) // the program makes its own folder the current one
        , picture_(picture)
        , program_(place_.path(), [this](QWidget& window, const QString& step) { Grab(window, step); })
    {
    }

    void Make()
    {
        program_.StartProgram();
        program_.WritePageFrame(QStringLiteral("<title>Harbour</title>"));
        ShowTags();
        ShowLinks();
        program_.OpenEditor();
        program_.ChooseMode(JSTextArea);
        program_.ChooseMode(JSDisabled);
        program_.OpenPicture(SmallPicture());
        program_.DrawRectangle(
            program_.At(6, 57), program_.At(32, 84), { { "cmbLink", QStringLiteral("house.htm") } });
        program_.DrawCircle(
            program_.At(46, 21), program_.At(53, 21),
            { { "cmbLink", QStringLiteral("sun.htm") }, { "cmbTarget", QStringLiteral("_blank") } });
        program_.DrawPolygon(
            { program_.At(41, 79), program_.At(56, 40), program_.At(67, 79), program_.At(63, 88),
              program_.At(45, 88) },
            { { "cmbLink", QStringLiteral("boat.htm") } });
        program_.ShowEditor(QStringLiteral("areas"));
        program_.NameFilesOnly(true);
        program_.InsertMap();
        ShowPreferences();
        ShowFinding();
        ShowProblems();
        program_.ShowEditor(QStringLiteral("selected"));
        program_.CloseEditor();
        ShowOutlining();
    }

private:
    void Grab(QWidget& window, const QString& step)
    {
        if (step == u"editor") {
            Fitted(window, { pictureWidth, editorHeight });
        } else if (step == u"page") {
            main_ = &Fitted(window, { pictureWidth, mainHeight });
        } else if (step == u"areas") {
            Save(window, "image-map-editor");
            auto* const tabs = FindPart<QTabWidget>(window, QStringLiteral("SSTab1"));
            tabs->setCurrentIndex(1);
            Save(*tabs, "picture-options");
            tabs->setCurrentIndex(0);
        } else if (step == u"selected") {
            ShowSelected(window);
        } else if (step == u"outlining") {
            auto* const surface = FindPart<QWidget>(window, QStringLiteral("PictureDisplay"));
            QTest::mouseClick(surface, Qt::LeftButton, {}, outlined_);
            auto* const make = FindPart<QAbstractButton>(window, QStringLiteral("cmdMakeArea"));
            Check(
                QTest::qWaitFor([make] { return make->isEnabled(); }), QStringLiteral("nothing is outlined"));
            Save(window, "outline");
        } else if (step == u"link-rectangle") {
            Save(window, "link-dialog");
        } else if (step == u"mode") {
            Save(Fitted(window, { pictureWidth, window.height() }), "javascript-options");
        } else if (step == u"map") {
            Save(Fitted(window, { pictureWidth, mainHeight }), "main-window");
        }
    }

    void ShowTags()
    {
        auto* const tree = FindPart<QTreeWidget>(*main_, QStringLiteral("TreeView1"));
        const QList<QTreeWidgetItem*> found =
            tree->findItems(QStringLiteral("Bold"), Qt::MatchExactly | Qt::MatchRecursive);
        Check(found.size() == 1, QStringLiteral("there is no tag Bold"));
        found[0]->parent()->setExpanded(true);
        tree->scrollToItem(found[0], QAbstractItemView::PositionAtCenter);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(found[0]).center());
        Save(*FindPart<QTabWidget>(*main_, QStringLiteral("SSTab1")), "tag-tree");
    }

    void ShowLinks()
    {
        auto* const tabs = FindPart<QTabWidget>(*main_, QStringLiteral("SSTab1"));
        tabs->setCurrentIndex(1);
        auto* const field = FindPart<QLineEdit>(*main_, QStringLiteral("txtCTags"));
        for (const char* const link : { "index.htm", "house.htm", "https://www.example.com/" }) {
            QTest::keyClicks(field, QString::fromLatin1(link));
            QTest::mouseClick(FindPart<QAbstractButton>(*main_, QStringLiteral("btnAdd")), Qt::LeftButton);
        }
        QTest::keyClicks(field, QStringLiteral("boat.htm"));
        Save(*tabs, "saved-links");
        tabs->setCurrentIndex(0);
    }

    void ShowPreferences()
    {
        main_->activateWindow();
        Check(QTest::qWaitForWindowActive(main_), QStringLiteral("the main window does not become active"));
        QTest::keyClick(
            FindPart<QWidget>(*main_, QStringLiteral("MapsText1")), Qt::Key_P, Qt::ControlModifier);
        auto* const options = FindPart<QDialog>(*main_, QStringLiteral("frmMapOptions"));
        auto* const indent = FindPart<QLineEdit>(*options, QStringLiteral("txtIndentValue"));
        indent->selectAll();
        QTest::keyClicks(indent, QStringLiteral("10"));
        Save(*options, "preferences");
        options->close();
    }

    /** The entries of menus are chosen without their menus, which would lie over what is to be seen. */
    static void Choose(const QWidget& window, const char* entry)
    {
        FindPart<QAction>(window, QString::fromLatin1(entry))->trigger();
    }

    void ShowFinding()
    {
        Choose(*main_, "mnuVColours");
        Choose(*main_, "mnuVLineNumbers");
        Choose(*main_, "mnuPReplace");
        QTest::keyClicks(FindPart<QLineEdit>(*main_, QStringLiteral("txtFind")), QStringLiteral("area"));
        Save(*main_, "find-bar");
        QTest::mouseClick(FindPart<QAbstractButton>(*main_, QStringLiteral("btnCloseFind")), Qt::LeftButton);
    }

    void ShowProblems()
    {
        auto* const source = FindPart<QWidget>(*main_, QStringLiteral("MapsText1"));
        // In front of the end of the body.
        QTest::keyClick(source, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(source, Qt::Key_Up);
        QTest::keyClick(source, Qt::Key_Home);
        QTest::keyClicks(source, QStringLiteral("<em>My <blnk>harbour</blnk>"));
        Choose(*main_, "mnuPCheck");
        Save(*main_, "problems");
        QTest::mouseClick(
            FindPart<QAbstractButton>(*main_, QStringLiteral("btnCloseProblems")), Qt::LeftButton);
    }

    /** The first area selected, all of them shown, and what is told of it. */
    void ShowSelected(QWidget& editor)
    {
        editor.activateWindow();
        Check(QTest::qWaitForWindowActive(&editor), QStringLiteral("the editor does not become active"));
        Choose(editor, "mnuVAreas");
        Choose(editor, "mnuASelect");
        auto* const surface = FindPart<QWidget>(editor, QStringLiteral("PictureDisplay"));
        QTest::mouseClick(surface, Qt::LeftButton, {}, program_.At(20, 70));
        FindPart<QTabWidget>(editor, QStringLiteral("SSTab1"))->setCurrentIndex(2);
        Save(editor, "selected-area");
    }

    /** A map of regions, most of which have their areas, and the outline of the next one. */
    void ShowOutlining()
    {
        const QImage regions = RegionsPicture({ 640, 280 });
        const QString path = place_.filePath(QStringLiteral("regions.jpg"));
        Check(regions.save(path, "jpg", 100), u"cannot save " + path);
        program_.OpenEditor();
        program_.OpenPicture(path);
        constexpr qsizetype made = 6;
        for (qsizetype i = 0; i < made; ++i) {
            program_.OutlineRegion(
                InRegions(regions, i), { { "cmbLink", QStringLiteral("region%1.htm").arg(i + 1) } });
        }
        outlined_ = InRegions(regions, made);
        program_.ShowEditor(QStringLiteral("outlining"));
    }

    static QPoint InRegions(const QImage& regions, qsizetype number)
    {
        constexpr int hundredths = 100;
        const QPoint place = regionPlaces[number];
        return { place.x() * regions.width() / hundredths, place.y() * regions.height() / hundredths };
    }

    /** The picture in half its size, which the editor shows as a whole. */
    [[nodiscard]] QString SmallPicture() const
    {
        const QImage whole(picture_);
        QString path = place_.filePath(QStringLiteral("harbour.jpg"));
        Check(
            whole.scaledToWidth(whole.width() / 2, Qt::SmoothTransformation).save(path, "jpg", 90),
            u"cannot make " + path);
        return path;
    }

    /** `window`, made as small as it can be down to `size`. */
    static QWidget& Fitted(QWidget& window, QSize size)
    {
        window.resize(size);
        QCoreApplication::processEvents();
        return window;
    }

    void Save(QWidget& part, const char* name) const
    {
        const QString path = folder_.absoluteFilePath(QString::fromLatin1(name) + u".png");
        QCoreApplication::processEvents(); // lets layouts follow what has changed
        const QImage picture = WithFewColours(part.grab().toImage());
        Check(
            picture.width() <= pictureWidth,
            QStringLiteral("%1 is too wide: %2").arg(path).arg(picture.width()));
        Check(picture.save(path, "png", 0), u"cannot save " + path);
        Say(QStringLiteral("%1: %2 x %3").arg(path).arg(picture.width()).arg(picture.height()));
    }

    QTemporaryDir place_;
    QDir folder_;
    QString picture_;
    ProgramDriver program_;
    QWidget* main_ = nullptr;
    QPoint outlined_; ///< in the region whose outline is shown
};

/** Looks the same on every machine that has these fonts. */
void FixTheLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 9));
    QFont::insertSubstitution(QStringLiteral("Tahoma"), QStringLiteral("Liberation Sans"));
    QFont::insertSubstitution(QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"));
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        Say(QStringLiteral("usage: cartolen-pictures FOLDER PICTURE"));
        return 2;
    }
    FixTheLook();
    try {
        Pictures(arguments[1], QFileInfo(arguments[2]).absoluteFilePath()).Make();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The pictures are not made: %s\n", error.what());
        return 1;
    }
    return 0;
}
