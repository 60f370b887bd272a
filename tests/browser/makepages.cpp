// Makes a page of every kind with the real program, for a browser to open.
//
// cartolen-pages FOLDER PICTURE leaves the pages in FOLDER, with the pictures and the pages that they lead
// to.

#include "tests/support/ProgramDriver.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <cstdio>

namespace {

constexpr std::array<const char*, 3> shapes = { "rectangle", "circle", "polygon" };

/** What a page's areas are linked to in every mode. */
constexpr std::array<const char*, 3> links = { "house.htm", "sun.htm", "boat.htm" };
constexpr std::array<const char*, 3> targets = { "_blank", "", "harbour" };

/** The messages: several lines for the one mode that has them, and a letter beyond ASCII. */
constexpr std::array<const char*, 3> messages = { "The house", "The sun<br>at noon", "A boat, na\xefve" };

/** Without the code page a browser guesses, from few letters beyond ASCII often wrong. */
constexpr const char* head = "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">"
                             "<title>Harbour</title>";

struct Page
{
    const char* name;
    JSMode mode;
    bool fileNamesOnly;
};

constexpr std::array<Page, 6> pages = { {
    { "no-script", JSDisabled, false },
    { "status-bar", JSStatusBar, true },
    { "switching-images", JSSwitchImages, false },
    { "switching-images-file-names", JSSwitchImages, true },
    { "text-area", JSTextArea, true },
    { "tool-tips", JSToolTips, false },
} };

class PageMaker
{
public:
    PageMaker(const QString& folder, const QString& picture)
        : folder_(QDir(folder).absolutePath()) // the program makes its own folder the current one
        , program_(folder)
        , original_(picture)
    {
    }

    void MakeAll()
    {
        MakePictures();
        MakeLinkedPages();
        program_.StartProgram();
        program_.OpenEditor();
        program_.OpenPicture(picture_);
        for (const Page& page : pages) {
            Make(page);
            program_.NewPage();
        }
    }

private:
    [[nodiscard]] QString Path(const QString& name) const { return folder_.absoluteFilePath(name); }

    [[nodiscard]] QString PictureOf(const QString& shape) const { return Path(shape + u".jpg"); }

    /** The pictures differ in width, so that a page's script can tell them apart. */
    void MakePictures()
    {
        picture_ = Path(QFileInfo(original_).fileName());
        QFile::remove(picture_);
        Check(QFile::copy(original_, picture_), u"cannot copy the picture " + original_);
        int width = 60;
        for (const char* const name : { "default", "rectangle", "circle", "polygon" }) {
            QImage picture(width, 40, QImage::Format_RGB32);
            picture.fill(QColor::fromHsv(width * 3 % 360, 160, 200));
            const QString path = PictureOf(QString::fromLatin1(name));
            Check(picture.save(path), u"cannot write " + path);
            width += 10;
        }
    }

    void MakeLinkedPages()
    {
        for (const char* const link : links) {
            QFile file(Path(QString::fromLatin1(link)));
            Check(file.open(QIODevice::WriteOnly), u"cannot write " + file.fileName());
            file.write("<html><head><title>" + QByteArray(link) + "</title></head><body></body></html>\r\n");
        }
    }

    void Make(const Page& page)
    {
        program_.WritePageFrame(QString::fromLatin1(head));
        program_.ChooseMode(page.mode);
        program_.DrawRectangle(program_.At(10, 15), program_.At(32, 80), LinkOf(page.mode, 0));
        const QPoint centre = program_.At(50, 40);
        program_.DrawCircle(centre, centre + QPoint(program_.At(10, 0).x(), 3), LinkOf(page.mode, 1));
        // With a notch from below, in which the mouse is outside between two parts that are inside.
        program_.DrawPolygon(
            { program_.At(68, 88), program_.At(80, 15), program_.At(93, 88), program_.At(80, 55) },
            LinkOf(page.mode, 2));
        program_.NameFilesOnly(page.fileNamesOnly);
        program_.InsertMap();
        const QString path = Path(QString::fromLatin1(page.name) + u".htm");
        QFile::remove(path);
        program_.SavePage(path);
        Say(u"Page: " + path);
    }

    [[nodiscard]] FieldTexts LinkOf(JSMode mode, std::size_t area) const
    {
        FieldTexts texts = { { "cmbLink", QString::fromLatin1(links[area]) },
                             { "cmbTarget", QString::fromLatin1(targets[area]) } };
        texts += ModeTextsOf(mode, area);
        return texts;
    }

    /** The default belongs to the whole map: the dialog keeps it from the first area on. */
    [[nodiscard]] FieldTexts ModeTextsOf(JSMode mode, std::size_t area) const
    {
        const bool isFirst = area == 0;
        const QString message = QString::fromLatin1(messages[area]);
        switch (mode) {
        case JSStatusBar:
            return { { "txtStatusBarMessage", message } };
        case JSSwitchImages: {
            const FieldTexts picture = { { "Command2", PictureOf(QString::fromLatin1(shapes[area])) } };
            return isFirst ? FieldTexts{ { "Command1", PictureOf(QStringLiteral("default")) } } + picture
                           : picture;
        }
        case JSTextArea: {
            const FieldTexts text = { { "txtSwitchingTAreaMessage", message } };
            return isFirst ? FieldTexts{ { "txtDefaultTAreaMessage", QStringLiteral("Pick an area") } } + text
                           : text;
        }
        case JSToolTips:
            return { { "txtToolTipMessage", message } };
        default:
            return {};
        }
    }

    QDir folder_;
    ProgramDriver program_;
    QString original_;
    QString picture_;
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        Say(QStringLiteral("usage: cartolen-pages FOLDER PICTURE"));
        return 2;
    }
    try {
        PageMaker(arguments[1], arguments[2]).MakeAll();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The pages were not made: %s\n", error.what());
        return 1;
    }
    return 0;
}
