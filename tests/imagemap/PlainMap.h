#pragma once

#include "tests/imagemap/PlainFigure.h"

#include <QList>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <cstdlib>
#include <set>

/**
 * The editor as a person would tell of it: what is on the picture, in the list and beside it after each step.
 * Nothing of the program is used here, so that the two can be compared.
 */
class PlainMap
{
public:
    enum class Button { Left, Right };

    struct Row
    {
        QString shape;
        QString link;
        QString coordinates;
        QString message;
    };

    struct Labels
    {
        QString cursor;
        QString start;
        QString end;
        QString size;
        QString figures;
    };

    QList<PlainFigure> figures;
    int sides = 0;              ///< of all polygons
    QList<PlainFigure> current; ///< the sides of the polygon that has no area yet
    QList<Row> rows;
    Labels labels;
    PlainTool tool = PlainTool::Cursor;
    int mode = 0;
    QString modeDefault;
    QString header = Header(0);
    bool areCommandsEnabled = false;

    /** True when the link dialog opens. */
    bool Press(Button button, QPoint at)
    {
        if (button == Button::Left) {
            isLeftHeld_ = true;
            isReleaseVoid_ = false;
        }
        if (tool == PlainTool::Cursor) {
            return false;
        }
        if (tool == PlainTool::Line) {
            return PressForSide(button);
        }
        if (button == Button::Left && state_ == State::Resting) {
            Start(at);
        } else if (button == Button::Right && state_ == State::Drawing) {
            state_ = State::Moving;
        }
        return false;
    }

    bool Release(Button button, QPoint at)
    {
        const bool isVoid = button == Button::Left && isReleaseVoid_;
        if (button == Button::Left) {
            isLeftHeld_ = false;
            isReleaseVoid_ = false;
        }
        if (isVoid || tool == PlainTool::Cursor) {
            return false;
        }
        if (tool == PlainTool::Line) {
            if (button == Button::Left && state_ == State::Resting) {
                Start(at);
            }
            return false;
        }
        if (button == Button::Left && state_ == State::Drawing) {
            return FinishFigure();
        }
        if (button == Button::Right && state_ == State::Moving) {
            state_ = State::Drawing;
        }
        return false;
    }

    void Move(QPoint to)
    {
        labels.cursor = QStringLiteral("%1,%2").arg(to.x()).arg(to.y());
        if (tool == PlainTool::Cursor || state_ == State::Resting) {
            return;
        }
        // A corner beyond the picture is pulled in to one side only.
        if (to.x() > plainPicture.width()) {
            to.setX(plainPicture.width());
        } else if (to.y() > plainPicture.height()) {
            to.setY(plainPicture.height());
        }
        if (state_ == State::Moving) {
            from_ += to - to_;
        }
        to_ = to;
        Tell(InProgress());
    }

    void Choose(PlainTool chosen)
    {
        tool = chosen;
        kind_ = chosen == PlainTool::Cursor ? kind_ : chosen;
    }

    void DeleteLast()
    {
        if (figures.isEmpty() || (state_ != State::Resting && current.isEmpty())) {
            GiveUp();
            return;
        }
        const bool hasNoRow = figures.last().kind == PlainTool::Line && !current.isEmpty();
        TakeLastBack();
        if (!hasNoRow && !rows.isEmpty()) {
            rows.removeLast();
        }
    }

    /** What the link dialog leaves when it is closed over a new area. */
    void TakeLastBack()
    {
        if (!figures.isEmpty() && figures.last().kind == PlainTool::Line) {
            current.clear();
            TakePolygon();
        } else if (!figures.isEmpty()) {
            figures.removeLast();
        }
        state_ = State::Resting;
        TellAll();
        if (figures.isEmpty()) {
            labels = {};
            areCommandsEnabled = false;
            modeDefault.clear();
            header = Header(mode);
        }
    }

    void Link(const QString& link, const QString& message, const QString& newDefault)
    {
        TakeDefault(newDefault);
        Row row = { {}, link, {}, mode == 0 ? QString() : message };
        QList<int> numbers;
        const PlainFigure& last = figures.last();
        if (kind_ == PlainTool::Line) {
            row.shape = QStringLiteral("Polygon");
            numbers << current.first().from.x() << current.first().from.y();
            for (const PlainFigure& side : std::as_const(current)) {
                numbers << side.to.x() << side.to.y();
            }
            current.clear();
            ends_.insert(sides);
        } else if (kind_ == PlainTool::Circle) {
            row.shape = QStringLiteral("Circle");
            numbers << last.from.x() << last.from.y() << last.Radius();
        } else {
            row.shape = QStringLiteral("Rectangle");
            numbers << std::min(last.from.x(), last.to.x()) << std::min(last.from.y(), last.to.y())
                    << std::max(last.from.x(), last.to.x()) << std::max(last.from.y(), last.to.y());
        }
        QStringList texts;
        for (const int number : std::as_const(numbers)) {
            texts << QString::number(number);
        }
        row.coordinates = texts.join(QStringLiteral(", "));
        rows << row;
    }

    void Relink(int row, const QString& link, const QString& message, const QString& newDefault)
    {
        rows[row].link = link;
        rows[row].message = mode == 0 ? QString() : message;
        TakeDefault(newDefault);
    }

    /** Esc. */
    void Escape()
    {
        isReleaseVoid_ = isLeftHeld_ && IsInProgress();
        GiveUp();
    }

    /** New Image Map; `yes` answers the question whether to delete the map. True when it is asked. */
    bool StartAnew(bool yes)
    {
        if (figures.isEmpty()) {
            GiveUp();
            rows.clear();
            return false;
        }
        if (yes) {
            Clear();
            header = Header(mode);
        }
        return true;
    }

    /** The same for another option of the script. */
    bool SwitchMode(int chosen, bool yes)
    {
        const bool isAsked = !figures.isEmpty();
        if (isAsked && !yes) {
            return true;
        }
        if (isAsked) {
            Clear();
            modeDefault.clear();
        } else {
            GiveUp();
        }
        mode = chosen;
        header = Header(mode);
        return isAsked;
    }

    /** The editor is closed, its question answered with yes, and opened again with the same plainPicture. */
    void CloseAndReopen()
    {
        if (!figures.isEmpty()) {
            Clear();
        }
        GiveUp();
        rows.clear();
        labels = {};
        areCommandsEnabled = false;
        header = Header(mode);
        tool = PlainTool::Cursor;
        isLeftHeld_ = false;
        isReleaseVoid_ = false;
    }

private:
    enum class State { Resting, Drawing, Moving };

    static QString Header(int mode)
    {
        static const QStringList headers = {
            QStringLiteral(" Java Script Disabled - No Messages will be inserted!"),
            QStringLiteral(" Status Bar Messages (Netscape), and Tool Tips (MSIE):"),
            QStringLiteral(" Switching Images:"), QStringLiteral(" Switching Text Area Messages:"),
            QStringLiteral(" Tool Tip Messages:")
        };
        return headers[mode];
    }

    [[nodiscard]] bool IsInProgress() const { return state_ != State::Resting || !current.isEmpty(); }
    [[nodiscard]] PlainFigure InProgress() const { return { kind_, from_, to_ }; }

    void Start(QPoint at)
    {
        state_ = State::Drawing;
        from_ = to_ = at;
        areCommandsEnabled = true;
    }

    bool PressForSide(Button button)
    {
        if (button == Button::Right && state_ == State::Moving) {
            state_ = State::Drawing;
            return false;
        }
        if (state_ != State::Drawing) {
            return false;
        }
        state_ = State::Resting;
        Tell(InProgress());
        figures << InProgress();
        current << InProgress();
        ++sides;
        TellCount();
        return button == Button::Right && FinishPolygon();
    }

    bool FinishPolygon()
    {
        if (current.size() == 1) {
            DeleteLast();
            return false;
        }
        // The last side is only a corner.
        figures.removeLast();
        --sides;
        TellAll();
        return true;
    }

    bool FinishFigure()
    {
        GiveSidesUp();
        state_ = State::Resting;
        Tell(InProgress());
        figures << InProgress();
        TellCount();
        return true;
    }

    void GiveSidesUp()
    {
        if (!current.isEmpty()) {
            figures.remove(figures.size() - current.size(), current.size());
            sides -= int(current.size());
            current.clear();
            TellAll();
        }
    }

    void GiveUp()
    {
        if (!IsInProgress()) {
            return;
        }
        state_ = State::Resting;
        GiveSidesUp();
        if (figures.isEmpty()) {
            labels = {};
            areCommandsEnabled = false;
        }
    }

    /** A polygon reaches back to the end of the one before, which is forgotten then. */
    void TakePolygon()
    {
        const int before = sides;
        const auto end = ends_.lower_bound(before);
        sides = end == ends_.begin() ? 0 : *std::prev(end);
        ends_.erase(before);
        ends_.erase(sides);
        const qsizetype taken = std::min<qsizetype>(before - sides, figures.size());
        figures.remove(figures.size() - taken, taken);
    }

    /** All goes but mode and default. A polygon of one side that stood first is remembered to end there. */
    void Clear()
    {
        state_ = State::Resting;
        current.clear();
        figures.clear();
        rows.clear();
        sides = 0;
        ends_ = ends_.contains(1) ? std::set<int>{ 1 } : std::set<int>{};
        labels = {};
        areCommandsEnabled = false;
    }

    void TakeDefault(const QString& newDefault)
    {
        static const QStringList starts = { QString(), QString(),
                                            QStringLiteral(" Switching Images (Default Image:"),
                                            QStringLiteral(" Text Area Messages (Default Message:"),
                                            QString() };
        if (!starts[mode].isEmpty()) {
            modeDefault = newDefault;
            header = starts[mode] + newDefault + QStringLiteral("):");
        }
    }

    void Tell(const PlainFigure& figure)
    {
        const QPoint to = figure.End();
        labels.start = QStringLiteral("%1,%2").arg(figure.from.x()).arg(figure.from.y());
        labels.end = QStringLiteral("%1,%2").arg(to.x()).arg(to.y());
        labels.size = figure.kind == PlainTool::Circle ? QString::number(figure.Radius())
                                                       : QStringLiteral("%1,%2")
                                                             .arg(std::abs(to.x() - figure.from.x()))
                                                             .arg(std::abs(to.y() - figure.from.y()));
        TellCount();
    }

    void TellCount() { labels.figures = QString::number(figures.size()); }

    void TellAll()
    {
        TellCount();
        if (!figures.isEmpty()) {
            Tell(figures.last());
        }
    }

    PlainTool kind_ = PlainTool::Rectangle; ///< of the figure in progress
    State state_ = State::Resting;
    QPoint from_;
    QPoint to_;
    std::set<int> ends_; ///< after how many sides a polygon ends
    bool isLeftHeld_ = false;
    bool isReleaseVoid_ = false; ///< what the button was pressed for is given up
};
