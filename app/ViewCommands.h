#pragma once

#include <QObject>
#include <functional>
#include <memory>

class LineNumbers;
class PairMarks;
class QMenu;
class Settings;
class SourceEditor;
class SyntaxColours;
struct FlagSetting;

/** What of the view is on or off. */
enum class ViewChoice { Colours, LineNumbers, CurrentLine, Spaces, Wrap };

/** The commands of the View menu: how the text is shown. Nothing of it changes the text or its marks. */
class ViewCommands : public QObject
{
    Q_OBJECT

public:
    /** `check` shows in the menu what is on. */
    ViewCommands(
        SourceEditor& editor, Settings& settings, const QMenu& menu,
        std::function<void(ViewChoice, bool)> check);
    ~ViewCommands() override;
    Q_DISABLE_COPY_MOVE(ViewCommands)

    /** Shows the text as it was shown last; what it looks like now is the usual way. */
    void Restore();

    void mnuVColours_Click();
    void mnuVLineNumbers_Click();
    void mnuVCurrentLine_Click();
    void mnuVSpaces_Click();
    void mnuVWrap_Click();
    void mnuVLarger_Click();
    void mnuVSmaller_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool IsOn(ViewChoice choice) const;
    void Toggle(ViewChoice choice);
    void Show(ViewChoice choice, bool isOn);
    void ShowColours(bool areShown);
    void ShowLineNumbers(bool areShown);
    void ShowSpaces(bool areShown);
    void ShowCurrentLine();
    void ChangeSize(int steps);
    void ShowSize();
    void TurnWheel(int angle);

    SourceEditor& editor_;
    Settings& settings_;
    std::function<void(ViewChoice, bool)> check_;
    std::unique_ptr<SyntaxColours> colours_; ///< while they are on
    std::unique_ptr<PairMarks> pairs_;       ///< with the colours
    LineNumbers* numbers_ = nullptr;         ///< once they were wanted
    double usualSize_ = 0;                   ///< of the text, in points
    double usualTab_ = 0;                    ///< in pixels
    int wheelRest_ = 0;                      ///< what the wheel turned beyond whole notches
};
