#pragma once

class QContextMenuEvent;
class QEvent;
class QKeyEvent;
class SourceEditor;

/**
 * What keys and mouse do in lines that are in pieces: the same as if they were whole. The caret is never in
 * front of a joint but behind it, and what edits leaves pieces that fit.
 */
class LongLineKeys
{
public:
    explicit LongLineKeys(SourceEditor& editor);

    /** Does what `key` does where the editor would do something else; whether that was so. */
    [[nodiscard]] bool Press(const QKeyEvent& key);

    /** Puts the caret right after the editor has done what `key` does. */
    void SettleAfter(const QKeyEvent& key);

    /** The same after the mouse has done what `event` tells; nothing after other events. */
    void SettleAfterMouse(const QEvent& event);

    /** Shows the menu that `event` asks for, if it would leave pieces that do not fit; whether that was so.
     */
    [[nodiscard]] bool ShowMenu(const QContextMenuEvent& event);

    /** Takes caret and selection away from the front of a joint; the caret goes behind it, or stays in its
     * row. */
    void LeaveJoint(bool staysInRow);

private:
    [[nodiscard]] bool Remove(const QKeyEvent& key);
    [[nodiscard]] bool PutIn(const QKeyEvent& key);
    [[nodiscard]] bool Move(const QKeyEvent& key);

    SourceEditor& editor_;
};
