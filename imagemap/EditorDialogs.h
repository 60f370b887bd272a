#pragma once

#include "imagemap/drawing/DrawingView.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <optional>

class AreaList;
class EditorPanels;
class HelpViewer;
class MapDocument;
class PicturePane;
class QWidget;
class frmIMLink;
class frmJSOptions;
struct ImgMap;

/** The dialogs over the editor: those that link an area or choose the script, and what the mouse asks for. */
class EditorDialogs final : public QObject
{
    Q_OBJECT

public:
    /** What the dialogs are about, all of which lives as long. */
    struct Parts
    {
        QWidget& window;
        ImgMap& imgMap;
        MapDocument& map;
        HelpViewer& help;
        PicturePane& pane;
        const AreaList& list;
        EditorPanels& panels;
    };

    explicit EditorDialogs(const Parts& parts);
    ~EditorDialogs() override;

    /** Whether a dialog that the mouse asked for is about to open. */
    [[nodiscard]] bool IsOpening() const { return isMessagePending_; }

    /** Whether one is about to open, or the link of an area is being asked for. */
    [[nodiscard]] bool IsLinking() const;

    /** Edits the link of the selected area; without one, `hint` tells how to select it. */
    void EditArea(const QString& hint);

    /** The same for somebody who is in the list of the areas, if there are any. */
    void EditSelectedArea();

    /** Asks for the link of the figure just drawn once the mouse is through. */
    void LinkNewFigure();

    /** The same for the area `number`, which is there already; `done` learns whether it was linked. */
    void LinkMadeArea(qsizetype number, std::function<void(bool)> done);

    /** Tells that no further figure can be started once the mouse is through. */
    void ReportFullStore(FullStoreText text);

    /** Chooses what the script around the areas shows. */
    void OpenOptions();

    /** Closes what is open, which is deleted by itself only if it `mayDelete`. */
    void Close(bool mayDelete);

Q_SIGNALS:
    /** A dialog has been closed. */
    void Closed();
    /** A message that the mouse asked for has been read. */
    void MessageRead();

private:
    /** Lets the mouse wait while `act`, which may open a dialog, runs once the mouse handler is done. */
    template<class Act> void AfterTheMouse(Act act);
    /** For a new area, or for rewriting the area `replaced`; see LinkMadeArea() for `done`. */
    void OpenLinkDialog(
        std::optional<qsizetype> replaced = std::nullopt, const std::function<void(bool)>& done = {});

    Parts parts_;
    QPointer<frmIMLink> linkDialog_;
    QPointer<frmJSOptions> jsOptions_;
    bool isMessagePending_ = false; ///< a dialog that the mouse asked for is about to open
};
