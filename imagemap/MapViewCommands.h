#pragma once

#include "shared/Settings.h"
#include "widgets/CommandTable.h"

#include <QObject>
#include <QRect>
#include <functional>

class ZoomControls;

/** The commands that change how picture and areas are seen: their menu and their part of the toolbar. */
class MapViewCommands final : public QObject
{
    Q_OBJECT

public:
    /** What a command needs to be enabled. */
    enum class Need { Nothing, Picture, Selection };
    /** What is switched on and off. */
    enum class Mark { Fit, Areas, Snap, Guides };
    using Command = CommandRow<MapViewCommands, Need, Mark>;

    /** What the commands work on, all of which lives as long. */
    struct Parts
    {
        QMenuBar& menus;
        QToolBar& toolbar;
        ZoomControls& zoom;
        Settings& settings;          ///< what is switched on is remembered there
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
        std::function<QRect()> selection; ///< what the selected areas take up, in picture pixels
    };

    MapViewCommands(QObject* parent, Parts parts);

    /** The menu, to which others may add. */
    [[nodiscard]] QMenu& Menu() const;

    /** Whether that is switched on. */
    [[nodiscard]] bool IsOn(const FlagSetting& setting) const;

    void Enable(bool hasPicture, bool hasSelection);

    void ZoomIn();
    void ZoomOut();
    void ActualSize();
    void ToggleFit();
    void FitSelection();
    /** Switches on or off what is remembered. */
    template<const FlagSetting& setting> void Switch() { Toggle(setting); }

Q_SIGNALS:
    /** What IsOn() tells may be another. */
    void Switched();

private:
    void Toggle(const FlagSetting& setting);
    void ShowSettings();

    Parts parts_;
    CommandSet<Command> commands_;
};
