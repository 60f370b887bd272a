#pragma once

#include <QHeaderView>

/** The area list's header: captions that would take too much of the list's width stand in two lines. */
class AreaHeader : public QHeaderView
{
public:
    explicit AreaHeader(QWidget* parent);

protected:
    [[nodiscard]] QSize sectionSizeFromContents(int column) const override;
};
