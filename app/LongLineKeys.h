#pragma once

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

    /** The same after the mouse was used; `mayBeLine` if the click may have selected a line. */
    void SettleAfterMouse(bool mayBeLine);

    /** Takes caret and selection away from the front of a joint; the caret goes behind it, or stays in its
     * row. */
    void LeaveJoint(bool staysInRow);

private:
    [[nodiscard]] bool Remove(const QKeyEvent& key);
    [[nodiscard]] bool PutIn(const QKeyEvent& key);
    [[nodiscard]] bool Move(const QKeyEvent& key);

    SourceEditor& editor_;
};
