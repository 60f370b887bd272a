#pragma once

#include "imagemap/drawing/DrawingView.h"

#include <QList>
#include <QSize>
#include <QStringList>
#include <functional>
#include <optional>

/** Stands in for the editor's window: does what the drawing tools ask for and keeps what came of it. */
class RecordingView : public DrawingSurface, public DrawingStatus
{
public:
    QSize picture = { 400, 300 };
    PaintedFigures painted; ///< on the picture for good
    std::optional<PaintedFigure> rubber;
    std::array<QString, drawingLabelCount> labels;
    QList<DrawingLabel> labelOrder; ///< the labels in the order in which they were set
    SurfacePointer pointer = SurfacePointer::Arrow;
    bool areCommandsEnabled = false;
    int toolShowings = 0;
    QList<FullStoreText> fullStoreTexts;
    QStringList linkPrompts;
    std::function<void()> onLink; ///< what the link dialog does; by default it stays open

    [[nodiscard]] QString Label(DrawingLabel label) const { return labels[static_cast<std::size_t>(label)]; }
    [[nodiscard]] QString Start() const { return Pair(DrawingLabel::StartPosition1); }
    [[nodiscard]] QString End() const { return Pair(DrawingLabel::EndPosition1); }
    [[nodiscard]] QString Dimensions() const { return Pair(DrawingLabel::Dimensions1); }
    [[nodiscard]] QString Cursor() const { return Pair(DrawingLabel::Cursor1); }
    [[nodiscard]] QString Figures() const { return Label(DrawingLabel::Figures); }

    [[nodiscard]] int PictureWidth() const override { return picture.width(); }
    [[nodiscard]] int PictureHeight() const override { return picture.height(); }

    void ShowFigures(const PaintedFigures& figures) override { painted = figures; }
    void ShowRubberFigure(const PaintedFigure& figure) override { rubber = figure; }
    void EraseRubberFigure() override { rubber.reset(); }
    void SetPointer(SurfacePointer newPointer) override { pointer = newPointer; }
    void SetLabel(DrawingLabel label, const QString& text) override
    {
        labels[static_cast<std::size_t>(label)] = text;
        labelOrder << label;
    }
    void EnableFigureCommands(bool enable) override { areCommandsEnabled = enable; }
    void ShowTool() override { ++toolShowings; }
    void ReportFullStore(FullStoreText text) override { fullStoreTexts << text; }
    void LinkNewFigure(QStringView prompt) override
    {
        linkPrompts << prompt.toString();
        if (onLink) {
            onLink();
        }
    }

private:
    /** A label and the one beside it, as they are read. */
    [[nodiscard]] QString Pair(DrawingLabel first) const
    {
        const auto index = static_cast<std::size_t>(first);
        return labels[index] + labels[index + 1];
    }
};
