#pragma once

#include <QPainter>
#include <QStyledItemDelegate>

// Only windows include this; the library beside it needs no widgets.

/**
 * Shows rows as usual, but keeps the icon of a selected one as it is, on a plate of the list's own ground:
 * the icons' colours are meant for that, not for the colour of selections.
 */
class RowDelegate : public QStyledItemDelegate
{
public:
    explicit RowDelegate(QObject* parent)
        : QStyledItemDelegate(parent)
    {
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->state.testFlag(QStyle::State_Selected) && !option->icon.isNull()) {
            option->icon = OnPlate(*option);
        }
    }

private:
    static QIcon OnPlate(const QStyleOptionViewItem& option)
    {
        constexpr qreal corner = 2;
        const qreal scaling = option.widget != nullptr ? option.widget->devicePixelRatioF() : 1;
        QPixmap plate(option.decorationSize * scaling);
        plate.setDevicePixelRatio(scaling);
        plate.fill(Qt::transparent);
        const QRect place(QPoint(), option.decorationSize);
        QPainter painter(&plate);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.base());
        painter.drawRoundedRect(place, corner, corner);
        option.icon.paint(&painter, place);
        painter.end();
        QIcon icon(plate);
        icon.addPixmap(plate, QIcon::Selected);
        return icon;
    }
};
