#pragma once

#include "imagemap/frmImageMap.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/FakePage.h"
#include "tests/support/Icons.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingHelp.h"
#include "tests/support/WidgetDriving.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <functional>

/** Keeps what is put into the document. */
class FakeDocument : public FakePage
{
public:
    int InsertAtCaret(const QString& text) override
    {
        inserted << text;
        return line;
    }

    int line = 1; ///< where the caret is
    QStringList inserted;
};

/** The cells of a row of the area list. */
inline QStringList TextsOf(const QAbstractItemModel* model, int row)
{
    QStringList texts;
    for (int column = 0; column < model->columnCount(); ++column) {
        texts << model->index(row, column).data().toString();
    }
    return texts;
}

/** The image map editor, loaded and shown in a fresh program folder, and somebody who answers its dialogs. */
class EditorFixture
{
public:
    EditorFixture()
    {
        LoadIcons();
        LoadEditor();
    }
    ~EditorFixture()
    {
        // A test that failed half way may have left a dialog open.
        delete editor.data();
    }
    Q_DISABLE_COPY_MOVE(EditorFixture)

    /** Builds a new window, loaded but not yet shown; the store keeps what it holds. */
    void LoadEditor()
    {
        delete editor.data();
        editor = new frmImageMap(imgMap, map, document, help, nullptr);
        editor->Form_Load();
    }

    [[nodiscard]] bool Start()
    {
        editor->show();
        return QTest::qWaitForWindowActive(editor);
    }

    template<class Widget> Widget* Find(const char* name) const { return ::Find<Widget>(editor, name); }

    QString Text(const char* label) const { return Find<QLabel>(label)->text(); }
    QString Status() const { return Text("StatusBar1_Panel1"); }
    QWidget* Surface() const { return Find<QWidget>("PictureDisplay"); }
    QTreeView* List() const { return Find<QTreeView>("ListView1"); }
    int RowCount() const { return List()->model()->rowCount(); }
    QStringList Row(int index) const { return TextsOf(List()->model(), index); }
    QRect RowRect(int index) const { return List()->visualRect(List()->model()->index(index, 0)); }
    void SelectRow(int index) { List()->setCurrentIndex(List()->model()->index(index, 0)); }
    void ClickRow(int index)
    {
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, RowRect(index).topLeft() + QPoint(20, 5));
    }
    void DoubleClickRow(int index)
    {
        QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, RowRect(index).topLeft() + QPoint(20, 5));
    }
    /** The rows that are selected. */
    QList<int> SelectedRows() const
    {
        QList<int> rows;
        for (const QModelIndex& index : List()->selectionModel()->selectedRows()) {
            rows << index.row();
        }
        return rows;
    }
    QStringList Headers() const
    {
        QStringList headers;
        for (int column = 0; column < List()->model()->columnCount(); ++column) {
            headers << List()->model()->headerData(column, Qt::Horizontal).toString();
        }
        return headers;
    }
    QString MessageHeader() const { return List()->model()->headerData(4, Qt::Horizontal).toString(); }
    QAction* Entry(const char* name) const { return Find<QAction>(name); }

    /** A toolbar position counts from 1, separators included. */
    QAction* Button(int position) const { return Find<QToolBar>("Toolbar1")->actions().at(position - 1); }
    void ClickButton(int position) { Click(Find<QToolBar>("Toolbar1")->widgetForAction(Button(position))); }

    QList<int> EnabledButtons() const
    {
        QList<int> positions;
        const QList<QAction*> actions = Find<QToolBar>("Toolbar1")->actions();
        for (int i = 0; i < actions.size(); ++i) {
            if (!actions[i]->isSeparator() && actions[i]->isEnabled()) {
                positions << i + 1;
            }
        }
        return positions;
    }

    /** Those of the menu entries `names` that are enabled. */
    QStringList EnabledOf(const QStringList& names) const
    {
        QStringList enabled;
        for (const QString& name : names) {
            if (Entry(qPrintable(name))->isEnabled()) {
                enabled << name;
            }
        }
        return enabled;
    }

    QStringList CheckedTools() const
    {
        QStringList checked;
        for (const char* const name : { "mnuFigNum_5", "mnuFigNum_6", "mnuFigNum_7", "mnuCursor" }) {
            if (Entry(name)->isChecked()) {
                checked << QString::fromLatin1(name);
            }
        }
        return checked;
    }

    /** The labels of positions, size and number, in the order of their names in the window. */
    QString Start1And2() const { return Text("lblStartPosition1") + Text("lblStartPosition2"); }
    QString End1And2() const { return Text("lblEndPosition1") + Text("lblEndPosition2"); }
    QString Dimensions1And2() const { return Text("lblDimensions1") + Text("lblDimensions2"); }
    QString Cursor1And2() const { return Text("lblCursor1") + Text("lblCursor2"); }

    /** Writes a picture of `size` whose colour changes from place to place; returns its path. */
    QString WritePicture(QSize size, const QString& name = QStringLiteral("picture.jpg"))
    {
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                picture.setPixelColor(
                    x, y, QColor(40 + x * 80 / size.width(), 150, 90 + y * 100 / size.height()));
            }
        }
        const QString path = folder.Path(name);
        if (!picture.save(path, "JPG", 95)) {
            qFatal("cannot write %s", qPrintable(path));
        }
        return path;
    }

    void Open(const QString& path)
    {
        robot.ChooseFile(path);
        ClickButton(3);
    }

    void OpenPicture(QSize size = { 300, 200 }) { Open(WritePicture(size)); }

    /** The picture's pixels as they are shown, one each also on a dense screen. */
    QImage Pixels() const
    {
        QImage shown = Surface()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        shown.setDevicePixelRatio(1);
        return shown.scaled(Surface()->size());
    }

    void Press(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(Surface(), button, {}, at);
    }
    void Move(QPoint to) { QTest::mouseMove(Surface(), to); }
    void Release(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(Surface(), button, {}, at);
    }
    void ClickAt(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        Press(at, button);
        Release(at, button);
    }

    void Drag(QPoint from, QPoint to)
    {
        Press(from);
        Move(from + (to - from) / 2);
        Move(to);
        Release(to);
    }

    /** A side ends where the mouse was last moved to, so it is moved there before each click. */
    void ClickCorners(const QList<QPoint>& corners)
    {
        for (qsizetype i = 0; i < corners.size(); ++i) {
            Move(corners[i]);
            ClickAt(corners[i], i > 0 && i + 1 == corners.size() ? Qt::RightButton : Qt::LeftButton);
        }
    }

    /** Runs `act` and returns the dialog that it opens, which stays open. */
    QPointer<QDialog> DialogOpenedBy(const std::function<void()>& act)
    {
        QPointer<QDialog> opened;
        robot.Act([&opened](QDialog& dialog) { opened = &dialog; });
        act();
        if (!QTest::qWaitFor([&opened] { return opened != nullptr; })) {
            qFatal("no dialog opens");
        }
        return opened;
    }

    /** Runs `act`, which leads to the link dialog, and accepts that with `link`. */
    void Link(const char* link, const std::function<void()>& act)
    {
        const QPointer<QDialog> dialog = DialogOpenedBy(act);
        TypeIn(dialog, "cmbLink", link);
        ClickIn(dialog, "SSCmdOK");
        robot.WaitUntilDone();
    }

    void DrawRectangle(QPoint from, QPoint to, const char* link = "area.htm")
    {
        ClickButton(5);
        Link(link, [this, from, to] { Drag(from, to); });
    }

    void DrawCircle(QPoint centre, QPoint rim, const char* link = "area.htm")
    {
        ClickButton(6);
        Link(link, [this, centre, rim] { Drag(centre, rim); });
    }

    void DrawPolygon(const QList<QPoint>& corners, const char* link = "area.htm")
    {
        ClickButton(7);
        Link(link, [this, corners] { ClickCorners(corners); });
    }

    /** Gives the map a default for its mode, as accepting an area does. */
    void TakeDefault(const QString& text)
    {
        LinkEntry entry;
        entry.SetText(LinkField::DefaultImage, text);
        entry.SetText(LinkField::DefaultTextAreaMessage, text);
        map.LinkNewArea(entry);
    }

    /** The icon of a row of the area list. */
    QIcon RowIcon(int index) const
    {
        return List()->model()->index(index, 0).data(Qt::DecorationRole).value<QIcon>();
    }

    /** Fills the store with `count` rectangles, as if they had been drawn. */
    void FillStore(int count)
    {
        for (int i = 0; i < count; ++i) {
            map.Ledger().Figures[i] = { .Kind = kindRectangle,
                                        .X1 = 1,
                                        .Y1 = 1,
                                        .X2 = 5,
                                        .Y2 = 5,
                                        .Radius = 0,
                                        .Link = {},
                                        .Target = {},
                                        .Message = {} };
        }
        map.Ledger().FigureCount = count;
    }

    /** Lets anything come that is about to come: the windows post what they put off, and that may post more.
     */
    static void Settle()
    {
        constexpr int roundsAtMost = 5;
        for (int i = 0; i < roundsAtMost; ++i) {
            QTest::qWait(0);
        }
    }

    [[nodiscard]] bool Closes()
    {
        return QTest::qWaitFor([this] { return editor == nullptr; });
    }

    ProgramFolder folder;
    ImgMap& imgMap = folder.imgMap;
    MapDocument& map = folder.map;
    FakeDocument document;
    RecordingHelp help;
    DialogRobot robot;
    QPointer<frmImageMap> editor;
};
