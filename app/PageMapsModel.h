#pragma once

#include "mapback/MapPlaces.h"
#include "shared/PageDocument.h"

#include <QAbstractTableModel>
#include <optional>

/** The columns of the list of a page's maps. */
enum class PageMapColumn {
    Name,
    Picture,
    Areas,
    Line,
    Oddities,
};
inline constexpr int pageMapColumnCount = 5;

/**
 * The maps of a page in its order, and behind them its pictures without one, a row each. What a row says is
 * read from the page when it is asked for.
 */
class PageMapsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    PageMapsModel(QString page, PageMaps maps, std::vector<MapPlace> places, QObject* parent = nullptr);

    [[nodiscard]] const QString& Page() const { return page_; }
    [[nodiscard]] const PageMaps& Maps() const { return maps_; }

    /** The row of the map at what is selected in the page, or of the picture without one in whose tag that
     * is; else that of the only map. */
    [[nodiscard]] std::optional<int> RowAt(const TextSpan& selection) const;

    /** The map of a row; nullptr for a picture. */
    [[nodiscard]] const MapPlace* MapOf(int row) const;

    /** The tag of a row's picture without a map; nothing for a map. */
    [[nodiscard]] std::optional<HtmlSpan> PictureOf(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    [[nodiscard]] QString TextOfMap(const MapPlace& place, PageMapColumn column) const;
    [[nodiscard]] QString TextOfShapes(const MapPlace& place, PageMapColumn column) const;
    [[nodiscard]] QString TextOfPicture(int picture, PageMapColumn column) const;
    [[nodiscard]] int LineOf(int row) const;

    QString page_;
    PageMaps maps_;
    std::vector<MapPlace> places_;
    std::vector<HtmlSpan> pictures_; ///< those without a map
    std::vector<qsizetype> pictureOfMap_;
    std::vector<qsizetype> lineStarts_;
};

/** What is odd about a map or picture in words, for a user. */
[[nodiscard]] QString TextOf(MapOddities oddities);
