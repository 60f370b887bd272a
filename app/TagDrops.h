#pragma once

#include <QObject>

class SourceEditor;

/** Takes the tags that are dragged from the labels below the tree onto the text, and nothing else. */
class TagDrops : public QObject
{
    Q_OBJECT

public:
    explicit TagDrops(SourceEditor& editor);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SourceEditor& editor_;
};
