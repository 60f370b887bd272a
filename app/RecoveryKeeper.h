#pragma once

#include "app/recovery/RecoveryStore.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

class DocumentCommands;
class DocumentFile;
class EncodingCommands;
class MapDocument;
class MessageBar;
class SourceEditor;
class TextSnapshot;
class frmImageMap;
struct ImgMap;

/**
 * Keeps what is not saved, page and map, for the case that the program ends suddenly, and offers what was
 * left behind so. Nothing is written while all is saved.
 */
class RecoveryKeeper : public QObject
{
    Q_OBJECT

public:
    /** What it looks after; all of it must live longer. */
    struct Parts
    {
        const ImgMap& Program;
        MapDocument& Map;
        SourceEditor& Source;
        DocumentFile& File;
        DocumentCommands& Documents;
        EncodingCommands& Encodings;
        MessageBar& Messages;
        std::function<frmImageMap*()> MapEditor; ///< null while there is none
        std::function<void()> OpenMapEditor;
    };

    RecoveryKeeper(const Parts& parts, QObject* parent);
    ~RecoveryKeeper() override;

    /** Offers what other programs have left behind. */
    void OfferLeftBehind();

    /**
     * The program ends: nothing stays but what the user may not want to lose, which is a text that could not
     * be saved and a map that goes with its window.
     */
    void End();

private:
    void Source_Change();
    void Map_HistoryChanged();
    void timer_Timer();
    void slices_Timer();
    void btnRestore_Click(const LeftBehind& left);

    [[nodiscard]] bool IsPageUnsaved() const;
    [[nodiscard]] PageCopy CopyOfPage() const;
    void Expect();
    void Review();
    void FinishPage();
    void KeepMap();
    void TidyPasted();
    void Offer(const LeftBehind& left);
    [[nodiscard]] bool MayReplacePage();
    void PutBack(const PageCopy& page);
    void PutBack(const MapCopy& map);

    Parts parts_;
    RecoveryStore store_;
    QTimer timer_;  ///< until what is not saved is kept
    QTimer slices_; ///< while the text is being copied
    std::unique_ptr<TextSnapshot> snapshot_;
    MapCopy keptMap_;
    bool isPageAhead_ = false; ///< of what is kept of it
    bool isPageKept_ = false;
    bool isMapKept_ = false;
    bool isEnded_ = false;
};
