#pragma once

#include "imagemap/model/AreaArranging.h"

#include <QTreeView>
#include <optional>

class AreaHeader;

/** The list of a map's areas. It only tells that one is to be edited; who listens does the rest. */
class AreaList final : public QTreeView
{
    Q_OBJECT

public:
    explicit AreaList(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    /** The selected area, counted from 0. */
    [[nodiscard]] std::optional<qsizetype> SelectedArea() const;

    /** All selected areas, counted from 0, in the order they were selected. */
    [[nodiscard]] AreaNumbers SelectedAreas() const;

    /** Selects these areas, as far as there are such rows, and no others; shows the first of them. */
    void SelectAreas(const AreaNumbers& numbers);

Q_SIGNALS:
    /** A row, or the room below them, was double-clicked with the left button, or Enter pressed. */
    void EditAsked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;

private:
    void Header_SectionResized(int column);
    void FitColumns();
    void FitMessageColumn();

    AreaHeader* header_;
};
