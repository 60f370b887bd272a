#pragma once

#include "imagemap/MapOrigins.h"

#include <QMap>
#include <QObject>
#include <functional>
#include <memory>
#include <optional>

class EditorPanels;
class MapDocument;
class MapFields;
class PageDocument;
class PicturePane;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
struct MapPicture;

/** Update Page: what was changed in a map that has its place in the page is written there, and nothing else.
 */
class UpdateCommand final : public QObject
{
    Q_OBJECT

public:
    /** What it works on, all of which lives as long. */
    struct Parts
    {
        QMainWindow& window;
        QMenu& menu; ///< the command stands at its end, and at that of `toolbar`
        QToolBar& toolbar;
        MapDocument& map;
        PageDocument& page;
        MapFields& fields;
        EditorPanels& panels;
        const PicturePane& pane;
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
    };

    explicit UpdateCommand(const Parts& parts);

    /** Writes the changes into the page; false if they are not there afterwards. */
    bool Update();

    /** Whether there is something in a map of the page that the page has not got. */
    [[nodiscard]] bool HasUnwrittenChanges() const;

    /** Whether the map is of the page, so that it is asked for in other words than one that was only drawn.
     */
    [[nodiscard]] bool IsOfPage() const;

    /** Whether the map is the one that `page` has at `place`. */
    [[nodiscard]] bool IsOpen(QStringView page, const HtmlSpan& place) const;

    /** Asks whether changes are to be written, if there are any; false when the user wants to go on with
     * them.
     */
    [[nodiscard]] bool MayLeave();

    /** The map goes, if it is of the page: after MayLeave() has been asked. */
    void Forget();

    /** The map goes unless MayLeave() says no, which is the answer then. */
    [[nodiscard]] bool Leave();

    /** The map is in the page at `range` since it was inserted. */
    void TakeInserted(std::unique_ptr<AnchoredRange> range);

    /** The map was read from the page, as it is shown now. */
    void TakeRead(ReturnedMap read);

    /** What has to be kept to find the map in its page again; `last`, what was kept before, as long as that
     * will do. */
    [[nodiscard]] KeptOrigin Kept(const KeptOrigin& last) const;

    /** The map, which is there as it was kept, belongs to its page again, if that still has it; else that is
     * told. */
    void Resume(const KeptOrigin& kept);

    /** What the editor shows, for a page that has `reference` for the picture. */
    [[nodiscard]] ShownMap Shown(const ReturnedMap* read) const;

    /** Shows whether there is a place in the page to be updated. */
    void Enable();

private:
    void LeaveKey();
    void TakeTyped();
    void History_Changed();
    [[nodiscard]] bool MayLose(const QStringList& losses);
    [[nodiscard]] bool WriteAlone(const MapOrigin& origin);
    [[nodiscard]] bool WriteAll(MapOrigin& origin);
    bool Write(const QString& page, const ReturnedMap& was, EditedMap now);
    void Make(const MapUpdate& update, const EditedMap& now);
    [[nodiscard]] bool ResumeRead(const QString& page, const KeptOrigin& kept);
    [[nodiscard]] bool ResumeInserted(const QString& page, const KeptOrigin& kept);
    [[nodiscard]] ShownMap AgreedOn(ReturnedMap& read);
    [[nodiscard]] MapPicture Picture() const;
    [[nodiscard]] QString TextAt(const HtmlSpan& place) const;
    bool PrepareNew(const QString& page, const ReturnedMap& picture, EditedMap& map);
    void Show(const EditedMap& merged);

    Parts parts_;
    MapOrigins& origins_;
    QAction* entry_;
    QAction* button_;
    int serial_; ///< of the map whose fields are shown
};
