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
    void Load(const QString& text);

    frmImageMap* Map() { return ::Find<frmImageMap>(&test_->window, "frmImageMap"); }
    void PressEdit() { test_->Press(Qt::Key_M, Qt::ControlModifier); }
    bool Edit();
    void GoToMap();
    void Update();
    QString Text() { return test_->Editor()->Text(); }
    QStringList Rows();
    void Choose(int row);
    void ShowArea(int row);

    static QString Replaced(QString text, const char* old, const char* now)
    {
        return text.replace(QString::fromLatin1(old), QString::fromLatin1(now));
    }

private:
    void WritePicture(QSize size = { 300, 200 });
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

inline void EditMapFixture::GoToMap()
{
    Map()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(Map()));
}

inline void EditMapFixture::Update()
{
    GoToMap();
    QTest::keyClick(Map(), Qt::Key_U, Qt::ControlModifier);
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
