#pragma once

#include "imagemap/DrawingProtocol.h"
#include "linkdialog/AreaLinking.h"

#include <QList>
#include <QSize>
#include <QStringList>
#include <functional>
#include <optional>

/** Stands in for the editor's window: does what the drawing protocol asks for and keeps what came of it. */
class RecordingView : public DrawingView
{
public:
    QSize picture = { 400, 300 };
    QList<PaintedFigure> painted; ///< on the picture for good, since it was cleared last
    std::optional<PaintedFigure> rubber;
    std::array<QString, drawingLabels.size()> labels;
    QList<DrawingLabel> labelOrder; ///< the labels in the order in which they were set
    SurfacePointer pointer = SurfacePointer::Arrow;
    bool areCommandsEnabled = false;
    bool areLabelsHidden = false;
    int clearings = 0;
    int toolShowings = 0;
    int headerShowings = 0;
    AreaRows rows;
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

    void PaintFigure(const PaintedFigure& figure, Pen pen) override
    {
        if (pen == Pen::Invert) {
            rubber = figure;
        } else {
            painted << figure;
        }
    }
    void EraseRubberFigure() override { rubber.reset(); }
    void ClearDrawing() override
    {
        painted.clear();
        rubber.reset();
        ++clearings;
    }
    void SetSurfacePointer(SurfacePointer newPointer) override { pointer = newPointer; }
    void SetLabel(DrawingLabel label, const QString& text) override
    {
        labels[static_cast<std::size_t>(label)] = text;
        labelOrder << label;
    }
    void BeginPaintingAll() override { areLabelsHidden = true; }
    void EndPaintingAll() override { areLabelsHidden = false; }
    void EnableFigureCommands(bool enable) override { areCommandsEnabled = enable; }
    void ShowTool() override { ++toolShowings; }
    void ShowModeHeader() override { ++headerShowings; }
    void RemoveLastArea() override
    {
        if (!rows.isEmpty()) {
            rows.removeLast();
        }
    }
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
