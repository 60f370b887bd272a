#pragma once

#include "mapback/ReturnedMap.h"

#include <QImage>
#include <functional>

class EditorPanels;
class MapDocument;
class MapFields;
class PageDocument;
class QMainWindow;
class UpdateCommand;
struct ImgMap;

/** A map of a page opens in the editor: with its picture and fields, and its areas as if they had been drawn.
 */
class MapOpening
{
public:
    /** What it works on, all of which lives as long. */
    struct Parts
    {
        QMainWindow& window;
        const ImgMap& imgMap;
        MapDocument& map;
        PageDocument& page;
        MapFields& fields;
        EditorPanels& panels;
        UpdateCommand& update;
        std::function<void(const QString& path, const QImage& picture)> showPicture;
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
        std::function<bool()> discard; ///< the map that is there goes; false if the user keeps it
    };

    explicit MapOpening(const Parts& parts)
        : parts_(parts)
    {
    }

    /** Opens the map at `place` of the document, which is `page` and has `maps`; brings back the one that is
     * open if it is that. */
    void EditMap(const QString& page, const PageMaps& maps, const MapPlace& place);

    /** Opens the picture of the document whose tag is at `place`, for a map that goes behind it; brings back
     * the one that is open if it is that. */
    void MapPicture(const QString& page, const PageMaps& maps, const HtmlSpan& place);

private:
    void Open(ReturnedMap map, const QString& text, const QString& base);

    /** A picture to draw on, and what is to be told of it. */
    struct Ground
    {
        QString path;
        QImage picture;
        QString note;
    };

    [[nodiscard]] Ground FindGround(const ReturnedMap& map, const QString& base);
    [[nodiscard]] Ground AskForGround(const ReturnedMap& map, const QString& problem);
    [[nodiscard]] Ground PlainGround(const ReturnedMap& map);
    [[nodiscard]] QString KeptPath(const QByteArray& bytes);
    void Show(const ReturnedMap& map, const Ground& ground);

    Parts parts_;
};
