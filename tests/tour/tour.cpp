// Plays the program's main job with its real windows, driven by mouse and key events: from a picture through
// a rectangle, a circle and a polygon with their links to a page that holds the map and is saved; then the
// same map in a page for today's browsers; then a map whose areas are outlined by their colours.
//
// cartolen-tour FOLDER PICTURE leaves the pages and a screenshot of every step in FOLDER.

#include "shared/AnsiCodePage.h"
#include "shared/Paths.h"
#include "tests/support/ProgramDriver.h"
#include "tests/tour/Regions.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPixmap>
#include <QPolygon>
#include <cstdio>

namespace {

constexpr QSize regionsSize(600, 360);
constexpr int wholeQuality = 100;

class Tour
{
public:
    Tour(const QString& folder, const QString& picture)
        : folder_(QDir(folder).absolutePath()) // the program makes its own folder the current one
        , picture_(QFileInfo(picture).absoluteFilePath())
        , program_(folder, [this](QWidget& window, const QString& step) { Shoot(window, step); })
    {
    }

    void Play()
    {
        PrepareFolder();
        program_.StartProgram();
        program_.WritePageFrame(QStringLiteral("<title>Harbour</title>"));
        program_.OpenEditor();
        program_.OpenPicture(picture_);
        DrawRectangle();
        DrawCircle();
        DrawPolygon();
        program_.InsertMap();
        program_.SavePage(PagePath());
        CheckPage();
        program_.NewPage();
        program_.WritePageFrame(QStringLiteral("<title>Harbour</title>"));
        program_.SavePage(TodayPath());
        program_.ChooseForm(MarkupForm::Today);
        program_.InsertMap();
        program_.SaveAgain();
        CheckTodayPage();
        program_.CloseEditor();
        OutlineRegions();
        CheckRegionsPage();
    }

private:
    void PrepareFolder()
    {
        Check(QFile::exists(picture_), u"there is no picture " + picture_);
        for (const QString& old : folder_.entryList({ QStringLiteral("*.png"), QStringLiteral("*.htm") })) {
            folder_.remove(old);
        }
        folder_.remove(QStringLiteral("Data/Settings.ini")); // the form that was chosen last time
    }

    void DrawRectangle()
    {
        const QPoint from = program_.At(8, 15);
        const QPoint to = program_.At(32, 80);
        program_.DrawRectangle(
            from, to,
            { { "cmbLink", QStringLiteral("house.htm") }, { "cmbTarget", QStringLiteral("_top") } });
        areas_ += QStringLiteral(
                      "<AREA SHAPE=RECT COORDS=\"%1, %2, %3, %4\" HREF=\"house.htm\" TARGET=\"_top\">\r\n")
                      .arg(from.x())
                      .arg(from.y())
                      .arg(to.x())
                      .arg(to.y());
        shapes_ << QStringLiteral("<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\"/>")
                       .arg(from.x())
                       .arg(from.y())
                       .arg(to.x() - from.x())
                       .arg(to.y() - from.y());
    }

    void DrawCircle()
    {
        const QPoint centre = program_.At(50, 40);
        const QPoint rim = centre + QPoint(program_.At(12, 0).x(), 3);
        program_.DrawCircle(centre, rim, { { "cmbLink", QStringLiteral("sun.htm") } });
        // The radius is the horizontal distance where the rim lies further right than down, else the
        // vertical.
        const int radius = rim.y() < rim.x() ? rim.x() - centre.x() : rim.y() - centre.y();
        areas_ += QStringLiteral("<AREA SHAPE=CIRCLE COORDS=\"%1, %2, %3\" HREF=\"sun.htm\">\r\n")
                      .arg(centre.x())
                      .arg(centre.y())
                      .arg(radius);
        shapes_ << QStringLiteral("<circle cx=\"%1\" cy=\"%2\" r=\"%3\"/>")
                       .arg(centre.x())
                       .arg(centre.y())
                       .arg(radius);
    }

    void DrawPolygon()
    {
        const QList<QPoint> corners = { program_.At(70, 85), program_.At(80, 25), program_.At(90, 85),
                                        program_.At(80, 92) };
        program_.DrawPolygon(corners, { { "cmbLink", QStringLiteral("boat.htm") } });
        QStringList numbers;
        QStringList points;
        for (const QPoint corner : corners) {
            numbers << QString::number(corner.x()) << QString::number(corner.y());
            points << QStringLiteral("%1,%2").arg(corner.x()).arg(corner.y());
        }
        shapes_ << u"<polygon points=\"" + points.join(u' ') + u"\"/>";
        areas_ += u"<AREA SHAPE=POLYGON COORDS=\"" + numbers.join(QStringLiteral(", ")) +
                  u"\" HREF=\"boat.htm\">\r\n";
        program_.ShowEditor(QStringLiteral("areas"));
    }

    void CheckPage() const
    {
        QFile file(PagePath());
        Check(file.open(QIODevice::ReadOnly), u"there is no page " + PagePath());
        QString picture = QDir::toNativeSeparators(picture_);
        PathToFileUrl(picture);
        const QString map =
            QStringLiteral("<!-- This Image Map was created by Cartolen -->\r\n"
                           "<!-- https://cartolen.example/ -->\r\n"
                           "<IMG SRC=\"%1\" USEMAP=\"#MyImageMap\" WIDTH=%2 HEIGHT=%3 BORDER=0>\r\n"
                           "<MAP NAME=\"MyImageMap\">\r\n")
                .arg(picture)
                .arg(program_.PictureSize().width())
                .arg(program_.PictureSize().height()) +
            areas_ + u"</MAP>\r\n<!-- End Image Map-->";
        const QString page = u"<html>\r\n<head><title>Harbour</title></head>\r\n<body>\r\n" + map +
                             u"\r\n</body>\r\n</html>\r\n";
        Check(
            file.readAll() == AnsiCodePage::Encode(page), QStringLiteral("the page is not as it should be"));
        Say(u"Page: " + PagePath());
    }

    /** Each link has its shape, in the order in which they were drawn, and the head has their style. */
    void CheckTodayPage() const
    {
        QFile file(TodayPath());
        Check(file.open(QIODevice::ReadOnly), u"there is no page " + TodayPath());
        const QString page = QString::fromLatin1(file.readAll());
        const qsizetype style = page.indexOf(u"<style data-imap=");
        Check(style >= 0 && style < page.indexOf(u"</head>"), QStringLiteral("the page's head has no style"));
        const QString picture = QDir(folder_).relativeFilePath(picture_);
        qsizetype at = page.indexOf(u"<img src=\"" + picture + u'"', style);
        Check(at >= 0, QStringLiteral("the page does not show the picture"));
        for (const auto& [link, shape] :
             { std::pair("house.htm", shapes_[0]), { "sun.htm", shapes_[1] }, { "boat.htm", shapes_[2] } }) {
            at = page.indexOf(u"<a href=\"" + QString::fromLatin1(link) + u'"', at);
            Check(at >= 0, u"the page has no link to " + QString::fromLatin1(link));
            const QString rest = page.mid(at, page.indexOf(u"</a>", at) - at);
            Check(rest.endsWith(shape), u"the page has no " + shape);
        }
        Say(u"Page: " + TodayPath());
    }

    void OutlineRegions()
    {
        const QImage regions = RegionsPicture(regionsSize);
        Check(regions.save(RegionsPath(), "JPG", wholeQuality), u"cannot save " + RegionsPath());
        program_.NewPage();
        program_.WritePageFrame(QStringLiteral("<title>Regions</title>"));
        program_.SavePage(RegionsPagePath());
        program_.OpenEditor();
        program_.OpenPicture(RegionsPath());
        for (qsizetype i = 0; i < regionPlaces.size(); ++i) {
            program_.OutlineRegion(
                RegionPlace(i), { { "cmbLink", QStringLiteral("region%1.htm").arg(i + 1) } });
        }
        program_.ShowEditor(QStringLiteral("regions"));
        program_.ChooseForm(MarkupForm::Html4);
        program_.InsertMap();
        program_.SaveAgain();
    }

    /** Every region has its link, in the order in which they were clicked on, and its place lies inside. */
    void CheckRegionsPage() const
    {
        QFile file(RegionsPagePath());
        Check(file.open(QIODevice::ReadOnly), u"there is no page " + RegionsPagePath());
        const QString page = QString::fromLatin1(file.readAll());
        qsizetype at = 0;
        for (qsizetype i = 0; i < regionPlaces.size(); ++i) {
            static const QString before = QStringLiteral("<AREA SHAPE=POLYGON COORDS=\"");
            at = page.indexOf(before, at) + before.size();
            Check(at >= before.size(), QStringLiteral("an area is missing"));
            const QStringList numbers = page.mid(at, page.indexOf(u'"', at) - at).split(QStringLiteral(", "));
            QPolygon corners;
            for (qsizetype n = 0; n + 1 < numbers.size(); n += 2) {
                corners << QPoint(numbers[n].toInt(), numbers[n + 1].toInt());
            }
            const QString link = QStringLiteral("region%1.htm").arg(i + 1);
            Check(page.indexOf(link, at) < page.indexOf(u'>', at), u"the areas are not in order at " + link);
            Check(
                corners.containsPoint(RegionPlace(i), Qt::OddEvenFill),
                u"the area of " + link + u" lies elsewhere");
        }
        Say(u"Page: " + RegionsPagePath());
    }

    [[nodiscard]] static QPoint RegionPlace(qsizetype number)
    {
        constexpr int hundredths = 100;
        const QPoint place = regionPlaces[number];
        return { place.x() * regionsSize.width() / hundredths,
                 place.y() * regionsSize.height() / hundredths };
    }

    void Shoot(QWidget& window, const QString& step)
    {
        const QString path = folder_.absoluteFilePath(
            QStringLiteral("%1-%2.png").arg(++shots_, 2, 10, QLatin1Char('0')).arg(step));
        Check(window.grab().save(path), u"cannot save " + path);
        Say(u"Screenshot: " + path);
    }

    [[nodiscard]] QString PagePath() const { return folder_.absoluteFilePath(QStringLiteral("harbour.htm")); }

    [[nodiscard]] QString RegionsPagePath() const
    {
        return folder_.absoluteFilePath(QStringLiteral("regions.htm"));
    }

    [[nodiscard]] QString RegionsPath() const
    {
        return folder_.absoluteFilePath(QStringLiteral("map-of-regions.jpg"));
    }

    [[nodiscard]] QString TodayPath() const
    {
        return folder_.absoluteFilePath(QStringLiteral("harbour-today.htm"));
    }

    QDir folder_;
    QString picture_;
    ProgramDriver program_;
    QString areas_;      ///< as they are written in HTML 4
    QStringList shapes_; ///< as they are written for today's browsers
    int shots_ = 0;
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        Say(QStringLiteral("usage: cartolen-tour FOLDER PICTURE"));
        return 2;
    }
    try {
        Tour(arguments[1], arguments[2]).Play();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The tour failed: %s\n", error.what());
        return 1;
    }
    Say(QStringLiteral("The tour reached its end."));
    return 0;
}
