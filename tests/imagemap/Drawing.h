#pragma once

#include "imagemap/PictureSurface.h"

/** A picture on which figures are drawn one after the other. */
class Drawing : public PictureSurface
{
public:
    using PictureSurface::PictureSurface;

    void Add(const PaintedFigure& figure)
    {
        figures_ << figure;
        ShowFigures(figures_);
    }

    void Clear()
    {
        figures_.clear();
        ShowFigures(figures_);
    }

private:
    PaintedFigures figures_;
};
