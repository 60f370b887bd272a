#include "app/ViewCommands.h"

#include "app/EditorMargins.h"
#include "app/LineNumbers.h"
#include "app/PairMarks.h"
#include "app/Shades.h"
#include "app/SourceEditor.h"
#include "app/SyntaxColours.h"
#include "app/source/LongLines.h"
#include "shared/Settings.h"

#include <QMenu>
#include <QTextBlock>
#include <QWheelEvent>
#include <array>

namespace {

/** Eighths of a degree in one notch of the wheel. */
constexpr int notchOfWheel = 120;

struct ChoiceRow
{
    ViewChoice Which;
    const FlagSetting& Kept;
};

constexpr std::array choiceRows = { ChoiceRow{ ViewChoice::Colours, Setting::colours },
                                    ChoiceRow{ ViewChoice::LineNumbers, Setting::lineNumbers },
                                    ChoiceRow{ ViewChoice::CurrentLine, Setting::currentLine },
                                    ChoiceRow{ ViewChoice::Spaces, Setting::spaces },
                                    ChoiceRow{ ViewChoice::Wrap, Setting::wrap } };

constexpr bool AreInOrder()
{
    for (std::size_t i = 0; i < choiceRows.size(); ++i) {
        if (choiceRows[i].Which != static_cast<ViewChoice>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(AreInOrder());

const FlagSetting& SettingOf(ViewChoice choice)
{
    return choiceRows[static_cast<std::size_t>(choice)].Kept;
}

} // namespace

ViewCommands::ViewCommands(
    SourceEditor& editor, Settings& settings, const QMenu& menu, std::function<void(ViewChoice, bool)> check)
    : editor_(editor)
    , settings_(settings)
    , check_(std::move(check))
{
    editor_.viewport()->installEventFilter(this);
    connect(&editor_, &SourceEditor::cursorPositionChanged, this, &ViewCommands::ShowCurrentLine);
    connect(&editor_, &SourceEditor::textChanged, this, &ViewCommands::ShowCurrentLine);
    // The preferences set wrapping, too.
    connect(&menu, &QMenu::aboutToShow, this, [this] { check_(ViewChoice::Wrap, IsOn(ViewChoice::Wrap)); });
}

ViewCommands::~ViewCommands() = default;

void ViewCommands::Restore()
{
    usualSize_ = editor_.font().pointSizeF();
    usualTab_ = editor_.tabStopDistance();
    ShowSize();
    for (const ChoiceRow& row : choiceRows) {
        Show(row.Which, settings_.Value(row.Kept));
    }
}

void ViewCommands::mnuVColours_Click()
{
    Toggle(ViewChoice::Colours);
}

void ViewCommands::mnuVLineNumbers_Click()
{
    Toggle(ViewChoice::LineNumbers);
}

void ViewCommands::mnuVCurrentLine_Click()
{
    Toggle(ViewChoice::CurrentLine);
}

void ViewCommands::mnuVSpaces_Click()
{
    Toggle(ViewChoice::Spaces);
}

void ViewCommands::mnuVWrap_Click()
{
    Toggle(ViewChoice::Wrap);
}

void ViewCommands::mnuVLarger_Click()
{
    ChangeSize(1);
}

void ViewCommands::mnuVSmaller_Click()
{
    ChangeSize(-1);
}

bool ViewCommands::IsOn(ViewChoice choice) const
{
    return choice == ViewChoice::Wrap ? editor_.lineWrapMode() == QPlainTextEdit::WidgetWidth
                                      : settings_.Value(SettingOf(choice));
}

void ViewCommands::Toggle(ViewChoice choice)
{
    const bool isOn = !IsOn(choice);
    settings_.Keep(SettingOf(choice), isOn);
    Show(choice, isOn);
}

void ViewCommands::Show(ViewChoice choice, bool isOn)
{
    check_(choice, isOn);
    switch (choice) {
    case ViewChoice::Colours:
        ShowColours(isOn);
        break;
    case ViewChoice::LineNumbers:
        ShowLineNumbers(isOn);
        break;
    case ViewChoice::CurrentLine:
        ShowCurrentLine();
        break;
    case ViewChoice::Spaces:
        ShowSpaces(isOn);
        break;
    case ViewChoice::Wrap:
        editor_.setLineWrapMode(isOn ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
        break;
    }
}

void ViewCommands::ShowColours(bool areShown)
{
    if (areShown) {
        colours_ = std::make_unique<SyntaxColours>(editor_);
        pairs_ = std::make_unique<PairMarks>(editor_, *colours_);
    } else if (colours_ != nullptr) {
        pairs_.reset();
        colours_->TakeAway();
        colours_.reset();
    }
}

void ViewCommands::ShowLineNumbers(bool areShown)
{
    if (numbers_ == nullptr && areShown) {
        numbers_ = new LineNumbers(editor_);
        editor_.Margins().SetBar(Qt::LeftEdge, numbers_);
    }
    if (numbers_ != nullptr) {
        numbers_->setVisible(areShown);
    }
}

void ViewCommands::ShowSpaces(bool areShown)
{
    QTextOption option = editor_.document()->defaultTextOption();
    if (option.flags().testFlag(QTextOption::ShowTabsAndSpaces) != areShown) {
        option.setFlags(option.flags() ^ QTextOption::ShowTabsAndSpaces);
        editor_.document()->setDefaultTextOption(option);
    }
}

/** Marks all of the line that the caret is in, if it is wished. */
void ViewCommands::ShowCurrentLine()
{
    QList<QTextEdit::ExtraSelection> marks;
    if (IsOn(ViewChoice::CurrentLine)) {
        const QTextBlock block = editor_.textCursor().block();
        const QTextBlock lastPiece = LastPieceOf(block);
        QTextEdit::ExtraSelection line{ QTextCursor(FirstPieceOf(block)), {} };
        line.format.setBackground(CurrentLineGround(editor_.palette()));
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        // A selection is as wide as the view in all rows of a wrapped line but the one that it ends in.
        QTextEdit::ExtraSelection lastRow = line;
        const int end = lastPiece.position() + lastPiece.length() - 1;
        line.cursor.setPosition(end, QTextCursor::KeepAnchor);
        lastRow.cursor.setPosition(end);
        marks << line << lastRow;
    }
    editor_.SetMarks(SourceEditor::MarkLayer::CurrentLine, marks);
}

void ViewCommands::ChangeSize(int steps)
{
    settings_.Keep(Setting::textSize, settings_.Value(Setting::textSize) + steps);
    ShowSize();
}

void ViewCommands::ShowSize()
{
    const double size = usualSize_ + settings_.Value(Setting::textSize);
    QFont font = editor_.font();
    if (font.pointSizeF() != size) {
        font.setPointSizeF(size);
        editor_.setFont(font);
        editor_.setTabStopDistance(usualTab_ * size / usualSize_);
    }
}

/** Fine wheels and touchpads turn by less than a notch at a time; what is left of one way is none of the
 * other.
 */
void ViewCommands::TurnWheel(int angle)
{
    const bool isSameWay = (angle > 0) == (wheelRest_ > 0);
    wheelRest_ = (isSameWay ? wheelRest_ : 0) + angle;
    const int notches = wheelRest_ / notchOfWheel;
    wheelRest_ -= notches * notchOfWheel;
    if (notches != 0) {
        ChangeSize(notches);
    }
}

bool ViewCommands::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        ShowCurrentLine();
    } else if (event->type() == QEvent::Wheel) {
        const auto& wheel = *static_cast<QWheelEvent*>(event);
        if (wheel.modifiers().testFlag(Qt::ControlModifier)) {
            TurnWheel(wheel.angleDelta().y());
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
