// How the program's user draws.

#include "tests/support/ProgramDriver.h"

#include <QAction>
#include <QTest>
#include <QWindow>

namespace {

constexpr int rectangleButton = 5;
constexpr int circleButton = 6;
constexpr int lineButton = 7;

} // namespace

void ProgramDriver::DrawRectangle(QPoint from, QPoint to, const FieldTexts& link)
{
    ClickToolbar(rectangleButton);
    LinkNextFigure(QStringLiteral("rectangle"), link);
    DragFigure(from, to);
}

void ProgramDriver::DrawCircle(QPoint centre, QPoint rim, const FieldTexts& link)
{
    ClickToolbar(circleButton);
    LinkNextFigure(QStringLiteral("circle"), link);
    DragFigure(centre, rim);
}

void ProgramDriver::DrawPolygon(const QList<QPoint>& corners, const FieldTexts& link)
{
    ClickToolbar(lineButton);
    LinkNextFigure(QStringLiteral("polygon"), link);
    Press(Qt::LeftButton, corners[0]);
    Release(Qt::LeftButton, corners[0]);
    for (qsizetype i = 1; i < corners.size(); ++i) {
        Drag(corners[i - 1], corners[i]);
        const Qt::MouseButton button = i + 1 == corners.size() ? Qt::RightButton : Qt::LeftButton;
        Press(button, corners[i]);
        Release(button, corners[i]);
    }
    FinishDialogs();
}

// The mouse is sent to the window, which finds the widget and keeps the grab, as the system does.
void ProgramDriver::Press(Qt::MouseButton button, QPoint place)
{
    QTest::mousePress(editor_->windowHandle(), button, {}, InWindow(place));
}

void ProgramDriver::Release(Qt::MouseButton button, QPoint place)
{
    QTest::mouseRelease(editor_->windowHandle(), button, {}, InWindow(place));
}

void ProgramDriver::Drag(QPoint from, QPoint to)
{
    constexpr int steps = 8;
    for (int i = 1; i <= steps; ++i) {
        QTest::mouseMove(editor_->windowHandle(), InWindow(from + (to - from) * i / steps));
    }
}

void ProgramDriver::DragFigure(QPoint from, QPoint to)
{
    Press(Qt::LeftButton, from);
    Drag(from, to);
    Release(Qt::LeftButton, to);
    FinishDialogs();
}

QPoint ProgramDriver::InWindow(QPoint place) const
{
    return surface_->mapTo(editor_, place);
}

void ProgramDriver::OutlineRegion(QPoint place, const FieldTexts& link)
{
    editor_->activateWindow();
    Check(QTest::qWaitForWindowActive(editor_), QStringLiteral("the editor does not become active"));
    surface_->setFocus();
    QTest::keyClick(surface_, Qt::Key_W);
    Check(
        FindPart<QAction>(*editor_, QStringLiteral("mnuAOutline"))->isChecked(),
        QStringLiteral("the tool for outlines is not chosen"));
    // Its area is there when the link is asked for.
    LinkNextFigure(QStringLiteral("outline"), link, "SSCmdReplace");
    const qsizetype before = map_.Areas().size();
    QTest::mouseClick(surface_, Qt::LeftButton, {}, place);
    QTest::mouseDClick(surface_, Qt::LeftButton, {}, place);
    FinishDialogs();
    Check(map_.Areas().size() == before + 1, QStringLiteral("no area was made of the region"));
}
