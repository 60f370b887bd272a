#pragma once

#include "tests/app/EncodingFixture.h"

#include "app/recovery/RecoveryStore.h"
#include "imagemap/frmImageMap.h"

/** A main window that keeps at once what is not saved, and what it has kept. */
class RecoveryFixture : public EncodingFixture
{
protected:
    static constexpr auto soon =
        std::chrono::milliseconds(50); ///< how long it waits before it keeps something

    [[nodiscard]] QString Folder() const { return Path("Data/Recovery"); }
    [[nodiscard]] QStringList Files(const char* ending) const
    {
        return QDir(Folder()).entryList({ QLatin1Char('*') + QLatin1String(ending) }, QDir::Files);
    }
    [[nodiscard]] std::optional<PageCopy> KeptPage() const
    {
        const QStringList files = Files(".page");
        return files.size() == 1 ? ReadPageCopy(Folder() + u'/' + files.constFirst()) : std::nullopt;
    }
    [[nodiscard]] std::optional<MapCopy> KeptMap() const
    {
        const QStringList files = Files(".map");
        return files.size() == 1 ? ReadMapCopy(Folder() + u'/' + files.constFirst()) : std::nullopt;
    }
    [[nodiscard]] QString KeptText() const
    {
        const std::optional<PageCopy> page = KeptPage();
        return page ? page->Pieces.join(QString()) : QStringLiteral("(nothing)");
    }
    frmImageMap* ImageMapEditor() { return test_->window.findChild<frmImageMap*>(); }

    void OpenImageMapEditor()
    {
        test_->Press(Qt::Key_I, Qt::ControlModifier);
        QVERIFY(ImageMapEditor() != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
    }

    /** An area as drawing one leaves it. */
    void DrawArea()
    {
        MapDocument& map = test_->folder.map;
        map.Ledger().CurrentKind = kindRectangle;
        map.Ledger().AppendFigure();
        map.LinkNewArea({});
    }
};
