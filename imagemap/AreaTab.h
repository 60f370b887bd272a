#pragma once

#include "imagemap/drawing/AreaEditing.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace Ui {
class AreaTab;
}
class MapOrigins;
struct ImgMap;

/** The tab for the selected areas: what is changed here changes all of them, as one step of undo a field. */
class AreaTab final : public QWidget
{
    Q_OBJECT

public:
    /** `imgMap`, whose saved links are offered, and `editing` must live as long. */
    AreaTab(
        const ImgMap& imgMap, AreaEditing& editing, std::function<bool()> begin, QWidget* parent = nullptr);
    ~AreaTab() override;

    /** Gives the keys to the field of the text for screen readers. */
    void GoToText();

    /** Shows all attributes of an area whose map came from a page. */
    void OfferAttributes(MapOrigins& origins);

private:
    using TextOfArea = QString MapArea::*;

    void Refresh();
    void RefreshText(QWidget* field, TextOfArea member);
    void ConnectText(QWidget* field, TextOfArea member, QStringView what);
    void ChangeText(TextOfArea member, const QString& text, QStringView what);
    void cmbAreaShape_Chosen(int index);
    void txtAreaCoords_Edited(const QString& text);
    void txtAreaCoords_Left();
    [[nodiscard]] bool SetWrittenCoordinates(MapArea& area, const QString& text) const;
    void ShowProblem(const QString& problem);

    AreaEditing& editing_;
    std::function<bool()> begin_;
    std::unique_ptr<Ui::AreaTab> ui_;
    MapOrigins* origins_ = nullptr; ///< once attributes are offered
    bool isChanging_ = false;
};
