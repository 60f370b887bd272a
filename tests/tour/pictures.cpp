// Makes the pictures of the help book: runs the program offscreen, uses it as a person would, and grabs its
// windows.
//
// cartolen-pictures FOLDER PICTURE leaves them in FOLDER; help/make-pictures calls it.

#include "tests/support/ProgramDriver.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

namespace {

/** The room that a page of the book has for a picture. */
constexpr int pictureWidth = 600;

class Pictures
{
public:
    Pictures(const QString& folder, const QString& picture)
        : folder_(QDir(folder).absolutePath()) // the program makes its own folder the current one
        , picture_(QFileInfo(picture).absoluteFilePath())
        , program_(place_.path(), [this](QWidget& window, const QString& step) { Grab(window, step); })
    {
    }

    void Make()
    {
        program_.StartProgram();
        program_.WritePageFrame(QStringLiteral("<title>Harbour</title>"));
        program_.OpenEditor();
        program_.ChooseMode(JSTextArea);
        program_.ChooseMode(JSDisabled);
        program_.OpenPicture(picture_);
        program_.DrawRectangle(
            program_.At(8, 15), program_.At(32, 80), { { "cmbLink", QStringLiteral("house.htm") } });
        program_.DrawCircle(
            program_.At(50, 40), program_.At(62, 41),
            { { "cmbLink", QStringLiteral("sun.htm") }, { "cmbTarget", QStringLiteral("_blank") } });
        program_.DrawPolygon(
            { program_.At(70, 85), program_.At(80, 25), program_.At(90, 85), program_.At(80, 92) },
            { { "cmbLink", QStringLiteral("boat.htm") } });
        program_.ShowEditor(QStringLiteral("areas"));
        program_.NameFilesOnly(true);
        program_.InsertMap();
    }

private:
    void Grab(QWidget& window, const QString& step)
    {
        if (step == u"areas") {
            Save(Fitted(window, { pictureWidth, 560 }), "image-map-editor");
            auto* const tabs = FindPart<QTabWidget>(window, QStringLiteral("SSTab1"));
            tabs->setCurrentIndex(1);
            Save(*tabs, "picture-options");
            tabs->setCurrentIndex(0);
        } else if (step == u"link-circle") {
            Save(window, "link-dialog");
        } else if (step == u"mode") {
            Save(Fitted(window, { pictureWidth, 0 }), "javascript-options");
        } else if (step == u"map") {
            Save(Fitted(window, { pictureWidth, 380 }), "main-window");
        }
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
        // A table of 256 colours is enough for windows, and a third of the size.
        const QImage picture =
            part.grab().toImage().convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
        Check(picture.width() <= pictureWidth, path + u" is too wide");
        Check(picture.save(path, "png", 0), u"cannot save " + path);
        Say(QStringLiteral("%1: %2 x %3").arg(path).arg(picture.width()).arg(picture.height()));
    }

    QTemporaryDir place_;
    QDir folder_;
    QString picture_;
    ProgramDriver program_;
};

/** Looks the same on every machine that has these fonts. */
void FixTheLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    QFont::insertSubstitution(QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans"));
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
        Pictures(arguments[1], arguments[2]).Make();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The pictures are not made: %s\n", error.what());
        return 1;
    }
    return 0;
}
