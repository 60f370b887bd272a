#pragma once

#include "linkdialog/frmIMLink.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/Icons.h"
#include "tests/support/ListedAreas.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/WidgetDriving.h"

#include <QFile>
#include <QPointer>
#include <memory>
#include <optional>

/** Notes what the dialog does to the map, and when it is through. */
class MapWatcher : public QObject
{
public:
    explicit MapWatcher(MapDocument& map)
        : map_(map)
    {
    }

    /** Notes what happens from now on; `replaced` is the area that the dialog is for, if it is no new one. */
    void Watch(const QDialog& dialog, std::optional<qsizetype> replaced)
    {
        count_ = map_.Areas().size();
        replaced_ = replaced;
        calls.clear();
        disconnect(&map_, nullptr, this, nullptr);
        disconnect(&map_.Script(), nullptr, this, nullptr);
        connect(&map_, &MapDocument::AreasChanged, this, [this] { NoteAreas(); });
        connect(&map_.Script(), &MapScript::MessageHeaderChanged, this, [this] {
            calls << u"header" + map_.Script().MessageHeader();
        });
        connect(&map_, &MapDocument::FiguresRemoved, this, [this] { calls << QStringLiteral("repaint"); });
        disconnect(&dialog, nullptr, this, nullptr);
        connect(&dialog, &QDialog::finished, this, [this] { calls << QStringLiteral("status"); });
    }

    QStringList calls;

private:
    void NoteAreas()
    {
        if (map_.Areas().size() > count_) {
            calls << QStringLiteral("append");
        } else if (replaced_) {
            const MapArea& area = map_.Areas().at(*replaced_);
            calls << QStringLiteral("replace %1 %2").arg(area.Link, area.Message);
        }
        count_ = map_.Areas().size();
    }

    MapDocument& map_;
    qsizetype count_ = 0;
    std::optional<qsizetype> replaced_;
};

inline constexpr int linkRecordSize = 276;

/** A used record of the links file. */
inline QByteArray LinkRecord(const QByteArray& url)
{
    QByteArray record = url.leftJustified(260, ' ') + QByteArray::fromHex("02000100");
    return record.leftJustified(linkRecordSize, '\0');
}

/** What a field of the dialog is filled with. */
struct Filling
{
    const char* field;
    const char* text;
};
using Fillings = QList<Filling>;

inline Fillings CompleteFor(int mode)
{
    switch (mode) {
    case 1:
        return { { "cmbLink", "a.htm" }, { "txtStatusBarMessage", "Hello" } };
    case 2:
        return { { "cmbLink", "a.htm" }, { "txtDefaultImage", "out.gif" }, { "txtSwitchImage", "over.gif" } };
    case 3:
        return { { "cmbLink", "a.htm" },
                 { "txtDefaultTAreaMessage", "Welcome" },
                 { "txtSwitchingTAreaMessage", "Here" } };
    case 4:
        return { { "cmbLink", "a.htm" }, { "txtToolTipMessage", "Tip" } };
    default:
        return { { "cmbLink", "a.htm" } };
    }
}

/** The link dialog over a map in a fresh program folder, and somebody who answers its messages. */
class LinkDialogTest : public QObject
{
protected:
    void SetUp();
    void TearDown();

    void OpenFor(int mode, qint16 kind = kindRectangle);
    void Show(std::optional<qsizetype> replaced);
    void Edit(const QString& message = {});
    void Fill(const Fillings& fillings);
    void WriteLinks(const QByteArray& bytes);
    /** A row a mode, with what accepting an area leaves in the map. */
    static void AddAcceptedAreas();
    [[nodiscard]] AreaRows Rows() const { return RowsOf(folder_->map); }

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<QWidget> owner_;
    std::unique_ptr<DialogRobot> robot_;
    std::unique_ptr<MapWatcher> watcher_;
    QPointer<frmIMLink> dialog_;
};

/** Draws a figure of `kind` and shows the dialog for it. */
inline void LinkDialogTest::OpenFor(int mode, qint16 kind)
{
    MapDocument& map = folder_->map;
    map.Script().SetMode(static_cast<JSMode>(mode));
    FigureStore& store = map.Ledger();
    store.CurrentKind = kind;
    store.StartX = 90;
    store.StartY = 80;
    store.EndX = 10;
    store.EndY = 20;
    store.CurrentRadius = 33;
    if (kind == kindLine) {
        store.AppendSide();
        store.StartX = 10;
        store.StartY = 20;
        store.EndX = 70;
        store.EndY = 60;
        store.AppendSide();
        store.RetractLastSide();
    } else {
        store.AppendFigure();
    }
    Show(std::nullopt);
}

/** Shows a dialog for a new area, or for the area `replaced`, and watches what it does. */
inline void LinkDialogTest::Show(std::optional<qsizetype> replaced)
{
    delete dialog_.data();
    dialog_ = new frmIMLink(folder_->imgMap, folder_->map, owner_.get());
    dialog_->Form_Load(replaced);
    // The robot leaves the dialog to the test, and answers what opens over it.
    bool isSeen = false;
    robot_->Act([&isSeen](QDialog&) { isSeen = true; });
    dialog_->show();
    QTRY_VERIFY(isSeen);
    QVERIFY(QTest::qWaitForWindowActive(dialog_));
    watcher_->Watch(*dialog_, replaced);
}

/** Shows the dialog for the fourth area of the map instead. */
inline void LinkDialogTest::Edit(const QString& message)
{
    constexpr int others = 3;
    for (int i = 0; i < others; ++i) {
        folder_->map.AppendArea({});
    }
    folder_->map.AppendArea({ .Shape = AreaShape::Circle,
                              .Coordinates = { 1, 2, 3 },
                              .Link = QStringLiteral("old.htm"),
                              .Target = QStringLiteral("_self"),
                              .Message = message });
    Show(others);
}

inline void LinkDialogTest::Fill(const Fillings& fillings)
{
    for (const Filling& filling : fillings) {
        TypeIn(dialog_, filling.field, filling.text);
    }
}

inline void LinkDialogTest::WriteLinks(const QByteArray& bytes)
{
    QFile file(folder_->Path(QStringLiteral("Data/Links.dra")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

inline void LinkDialogTest::SetUp()
{
    LoadIcons();
    folder_ = std::make_unique<ProgramFolder>();
    owner_ = std::make_unique<QWidget>();
    owner_->show();
    robot_ = std::make_unique<DialogRobot>();
    watcher_ = std::make_unique<MapWatcher>(folder_->map);
}

inline void LinkDialogTest::TearDown()
{
    delete dialog_.data();
    const QString problems = robot_->Problems();
    robot_.reset();
    owner_.reset();
    folder_.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

inline void LinkDialogTest::AddAcceptedAreas()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("modeDefault");
    QTest::addColumn<QString>("header");

    const QString untouched = QStringLiteral("untouched");
    QTest::newRow("disabled") << 0 << QString() << untouched << QString();
    QTest::newRow("status bar") << 1 << QStringLiteral("Hello") << untouched << QString();
    QTest::newRow("images") << 2 << QStringLiteral("over.gif") << QStringLiteral("out.gif")
                            << QStringLiteral(" Switching Images (Default Image:out.gif):");
    QTest::newRow("text area") << 3 << QStringLiteral("Here") << QStringLiteral("Welcome")
                               << QStringLiteral(" Text Area Messages (Default Message:Welcome):");
    QTest::newRow("tool tips") << 4 << QStringLiteral("Tip") << untouched << QString();
}
