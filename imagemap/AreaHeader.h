#pragma once

#include <QHeaderView>

/** The area list's header, whose captions stand in as many lines as the list's width needs; long ones are
 * cut. */
class AreaHeader : public QHeaderView
{
public:
    explicit AreaHeader(QWidget* parent);

    /** Breaks the captions into as few lines, three at most, as let all columns fit into `width`. */
    void FitInto(int width);

protected:
    [[nodiscard]] QSize sectionSizeFromContents(int column) const override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override;

private:
    [[nodiscard]] int NeededWidth() const;
    [[nodiscard]] QString CaptionOf(int column) const;
    [[nodiscard]] QSize FramedSize(const QString& caption) const;

    int lines_ = 1;
};
