#pragma once

class MapDocument;
class QWidget;
class UpdateCommand;
struct ImgMap;

/** What is asked before the editor's map is thrown away. Its parts must live as long. */
class MapDiscarding
{
public:
    MapDiscarding(QWidget& window, const ImgMap& imgMap, MapDocument& map, UpdateCommand& updating)
        : window_(window)
        , imgMap_(imgMap)
        , map_(map)
        , updating_(updating)
    {
    }

    /**
     * Throws the map away, which is asked first where something would be lost: of a map of the page, whether
     * its changes are to be written there. False when the user wants to go on with it.
     */
    [[nodiscard]] bool Discard();

    /** The same for the window, which is about to close. While the program ends the user is told, not asked.
     */
    [[nodiscard]] bool DiscardAtClosing();

private:
    QWidget& window_;
    const ImgMap& imgMap_;
    MapDocument& map_;
    UpdateCommand& updating_;
};
