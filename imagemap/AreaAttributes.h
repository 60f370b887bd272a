#pragma once

#include "imagemap/drawing/AreaEditing.h"

#include <QObject>
#include <functional>

class MapOrigins;
class QTableWidget;
class QTableWidgetItem;
struct AreaAttribute;

/**
 * The table of all attributes that the tag of the selected area has in its page. Each change is one step of
 * undo. The last row, which is empty, is for another attribute.
 */
class AreaAttributes final : public QObject
{
    Q_OBJECT

public:
    /** What it works on, all of which lives as long. */
    struct Parts
    {
        QTableWidget& table;
        AreaEditing& editing;
        MapOrigins& origins;
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
        std::function<void(const QString& problem)> tell;
    };

    explicit AreaAttributes(const Parts& parts);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Refresh();
    void AddRow(const AreaAttribute& attribute, bool isNew);
    void tblAttributes_Changed(QTableWidgetItem* item);
    void RemoveCurrent();
    void Set(const QString& name, const QString& value);

    Parts parts_;
    bool isFilling_ = false;
};
