#pragma once

#include "shared/TextEncoding.h"

#include <QObject>
#include <QSet>

class DocumentCommands;
class DocumentFile;
class MessageBar;
class QComboBox;
class QLabel;
class QStatusBar;
class QWidget;
class Settings;
class SourceEditor;

/**
 * What the status bar tells of the document at its right, and its encoding: choosing it, and the messages
 * about pages in UTF-8 and about characters that were lost on saving.
 */
class EncodingCommands : public QObject
{
    Q_OBJECT

public:
    EncodingCommands(
        QWidget* window, Settings& settings, SourceEditor& editor, DocumentFile& file,
        DocumentCommands& documents, MessageBar& messages);

    /** Makes the controls, none of them higher than `height`: the bar stays as high as it is. */
    void AddTo(QStatusBar& bar, int height);

    /** Whether characters were lost on saving and the user has not decided yet what is to become of them. */
    [[nodiscard]] bool IsLossUndecided() const { return isLossUndecided_; }

Q_SIGNALS:
    void LossDecided();

private:
    void cmbEncoding_Click(int index);
    void btnReadSo_Click();
    void btnAlways_Click();
    void btnAsReferences_Click();
    void btnAsUtf8_Click();

    void File_Began();
    void File_Saved(const QString& text);

    void ShowPlace();
    void ShowChanged(bool isChanged);
    void ShowEncoding();
    [[nodiscard]] bool ReadAgain(TextEncoding encoding);
    void TellOfUtf8();
    void TellOfLacking(const QString& text);
    void DecideLoss();
    void TellOfOdds(const QString& text);

    QWidget* window_;
    Settings& settings_;
    SourceEditor& editor_;
    DocumentFile& file_;
    DocumentCommands& documents_;
    MessageBar& messages_;
    bool isLossUndecided_ = false;
    QLabel* modified_ = nullptr;
    QLabel* place_ = nullptr;
    QComboBox* encoding_ = nullptr;
    QSet<TextEncoding> toldOfOdds_; ///< the encodings in which this document has been said to be at odds
};
