#pragma once

#include "app/rules/Completions.h"

#include <QObject>
#include <QTextBlock>

class DocumentFile;
class QAction;
class QCompleter;
class QKeyEvent;
class QStringListModel;
class Settings;
class SourceEditor;

/**
 * Offers at Ctrl+Space what can be written at the caret, and puts in the end tag with the ">" of a start tag.
 * Off until the user turns it on; then it is remembered.
 */
class TagCompletion : public QObject
{
    Q_OBJECT

public:
    /** `entry` of the menu turns it on and off. */
    TagCompletion(SourceEditor& editor, Settings& settings, const DocumentFile& file, QAction& entry);

    void mnuPComplete_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /** A part of the page up to the caret, whole lines. */
    struct Part
    {
        int Start = 0; ///< in the document
        QString Text;
        HtmlState State;
        qsizetype Caret = 0; ///< in the text
    };
    /** A line that no tag goes over into, and how it is to be read. */
    struct KnownLine
    {
        int Start = -1; ///< in the document; less than nought while there is none
        HtmlState State;
    };

    [[nodiscard]] bool IsOn() const;
    [[nodiscard]] bool Editor_KeyPress(const QKeyEvent& key);
    [[nodiscard]] bool List_KeyPress(const QKeyEvent& key);
    [[nodiscard]] bool PutInEndTag();
    [[nodiscard]] static Part PartFrom(QTextBlock line, const HtmlState& state, int caret);
    [[nodiscard]] Part PageUpToCaret() const;
    [[nodiscard]] Part TagUpToCaret();
    void FindKnownLine();
    void Document_ContentsChange(int position);
    [[nodiscard]] QStringList Maps() const;
    [[nodiscard]] QStringList Files(const QString& folder) const;

    void ShowList();
    void CreateList();
    void PutIn(const QString& text);

    SourceEditor& editor_;
    Settings& settings_;
    const DocumentFile& file_;
    QAction& entry_;
    QCompleter* completer_ = nullptr; ///< once it was wanted
    QStringListModel* model_ = nullptr;
    QStringList offered_;
    KnownLine known_; ///< from which what is typed is read
    int begun_ = 0;   ///< where in the document that begins which what is offered replaces
};
