#pragma once

#include "tests/support/WidgetDriving.h"

#include "imagemap/frmImageMap.h"
#include "tests/app/DocumentsFixture.h"

#include <QTabWidget>
#include <QTreeView>

/** A page that lies beside its picture, and the image map editor with a map of that page. */
class EditMapFixture : public DocumentsFixture
{
protected:
    static constexpr const char* twoAreas =
        "<p>One</p>\r\n"
        "<img src=\"harbour.jpg\" usemap=\"#h\" width=\"300\" height=\"200\" alt=\"The harbour\">\r\n"
        "<map name=h>\r\n"
        "  <area href='a.htm' shape=rect coords=\"10, 20,60,70\" alt=A title=\"About A\" data-x=\"1\">\r\n"
        "  <AREA SHAPE=\"circle\" COORDS=\"150,100,30\" HREF=\"b.htm?x=1&amp;y=2\" ALT=\"\">\r\n"
        "</map>\r\n"
        "<p>Two</p>\r\n";

    void StartWithAPage();
    void WritePicture(QSize size = { 300, 200 });
    void Load(const QString& text);

    frmImageMap* Map() { return ::Find<frmImageMap>(&test_->window, "frmImageMap"); }
    void PressEdit();
    bool Edit();
    bool EditMapOf(const QString& page);
    void GoToMap();
    void Update();
    QString Text() { return test_->Editor()->Text(); }
    void DrawRectangle(const QRect& place, const char* link);
    void FillANewMap(const MapAreas& areas);
    static MapArea PlainArea(const QList<int>& numbers, const char* link);
    QStringList Rows();
    void Choose(int row);
    void ShowArea(int row);

    static QString Replaced(QString text, const char* old, const char* now)
    {
        return text.replace(QString::fromLatin1(old), QString::fromLatin1(now));
    }

private:
    static bool BringToFront(QWidget* window);
};

inline void EditMapFixture::StartWithAPage()
{
    Start();
    WritePicture();
    QVERIFY(WriteBytes(Path("page.htm"), "x"));
    QVERIFY(OpenFile("page.htm", "x\r\n"));
}

inline void EditMapFixture::WritePicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    QVERIFY(picture.save(Path("harbour.jpg"), "JPG"));
}

inline void EditMapFixture::Load(const QString& text)
{
    test_->Editor()->LoadText(text);
}

/** A window says of itself that it is active as soon as the one that it belongs to is, or one of its own;
 * keys go to the application's. */
inline bool EditMapFixture::BringToFront(QWidget* window)
{
    window->activateWindow();
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
}

inline void EditMapFixture::PressEdit()
{
    QVERIFY(BringToFront(&test_->window));
    test_->Press(Qt::Key_M, Qt::ControlModifier);
}

/** Opens a map by the command's key; the editor comes to the front. */
inline bool EditMapFixture::Edit()
{
    PressEdit();
    return QTest::qWaitFor([this] {
        const auto* const editor = test_->window.findChild<frmImageMap*>();
        return editor != nullptr && editor->isVisible() && QApplication::activeModalWidget() == nullptr &&
               ::Find<QAction>(editor, "mnuAUpdatePage")->isEnabled();
    });
}

/** Opens the only map of `page`. */
inline bool EditMapFixture::EditMapOf(const QString& page)
{
    Load(page);
    return Edit();
}

inline void EditMapFixture::GoToMap()
{
    QVERIFY(BringToFront(Map()));
}

inline void EditMapFixture::Update()
{
    GoToMap();
    QTest::keyClick(Map(), Qt::Key_U, Qt::ControlModifier);
}

/** Draws it on the picture with the mouse; the link dialog gets a link and a message. */
inline void EditMapFixture::DrawRectangle(const QRect& place, const char* link)
{
    GoToMap();
    auto* const tools = ::Find<QToolBar>(Map(), "Toolbar1");
    Click(tools->widgetForAction(tools->actions().at(4)));
    auto* const picture = ::Find<QWidget>(Map(), "PictureDisplay");
    test_->robot.Act([link](QDialog& dialog) {
        TypeIn(&dialog, "cmbLink", link);
        TypeIn(&dialog, "txtStatusBarMessage", "New");
        ClickIn(&dialog, "SSCmdOK");
    });
    QTest::mousePress(picture, Qt::LeftButton, {}, place.topLeft());
    QTest::mouseMove(picture, place.center());
    QTest::mouseMove(picture, place.bottomRight());
    QTest::mouseRelease(picture, Qt::LeftButton, {}, place.bottomRight());
    test_->robot.WaitUntilDone();
}

/** Opens the picture beside the page in the editor, which is open, and gives it areas. */
inline void EditMapFixture::FillANewMap(const MapAreas& areas)
{
    test_->robot.ChooseFile(Path("harbour.jpg"));
    ::Find<QAction>(Map(), "mnuOpenImage")->trigger();
    test_->robot.WaitUntilDone();
    test_->folder.map.ChangeAreas(areas, QStringLiteral("Drawing"));
}

/** A rectangle of four numbers, or a circle of three. */
inline MapArea EditMapFixture::PlainArea(const QList<int>& numbers, const char* link)
{
    MapArea area;
    area.Shape = numbers.size() == 3 ? AreaShape::Circle : AreaShape::Rectangle;
    area.Coordinates = numbers;
    area.Link = QString::fromLatin1(link);
    return area;
}

inline QStringList EditMapFixture::Rows()
{
    QStringList rows;
    const QAbstractItemModel* const model = ::Find<QTreeView>(Map(), "ListView1")->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            cells << model->index(row, column).data().toString();
        }
        rows << cells.join(u'|');
    }
    return rows;
}

/** Selects an area by its row. */
inline void EditMapFixture::Choose(int row)
{
    GoToMap();
    auto* const tabs = ::Find<QTabWidget>(Map(), "SSTab1");
    tabs->setCurrentIndex(0);
    auto* const list = ::Find<QTreeView>(Map(), "ListView1");
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {},
        list->visualRect(list->model()->index(row, 0)).topLeft() + QPoint(20, 5));
}

/** Shows an area on the tab Area. */
inline void EditMapFixture::ShowArea(int row)
{
    Choose(row);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(2);
}
