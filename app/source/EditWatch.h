#pragma once

#include <QObject>

class QTextBlock;
class QTextDocument;

/**
 * Tells edits of a document's text from what its document tells as one too: formatting, composing with an
 * input method, loading. Each block keeps a hash of its text in its user state; what else is to be kept of a
 * block has its user data for itself.
 */
class EditWatch : public QObject
{
    Q_OBJECT

public:
    explicit EditWatch(QTextDocument* document);

    /** While it lives, changes are no edits, but another document coming in. */
    class Loading
    {
    public:
        explicit Loading(EditWatch& watch);
        ~Loading();
        Q_DISABLE_COPY_MOVE(Loading)

    private:
        EditWatch& watch_;
    };

    /** How many documents have come in. */
    [[nodiscard]] int Loads() const { return loads_; }

Q_SIGNALS:
    void Edited();

private:
    void Document_ContentsChange(int position, int removed, int added);
    [[nodiscard]] bool RememberText(int position, int length);

    QTextDocument* document_;
    int loads_ = 0;
    bool isLoading_ = false;
};
