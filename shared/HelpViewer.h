#pragma once

#include <QStringView>

class QWidget;

/** Who shows the help book; windows ask for it without knowing the window that it is shown in. */
class HelpViewer
{
public:
    virtual ~HelpViewer() = default;

    /** Shows the table of contents and the first page. `owner` is the window that asks, modal or not. */
    virtual void ShowContents(QWidget* owner) = 0;

    /** Shows the index, ready to take the first letters of a keyword. */
    virtual void ShowSearch(QWidget* owner) = 0;

    /** Shows the page named `topic`; a topic that the book does not have shows the first page. */
    virtual void ShowTopic(QWidget* owner, QStringView topic) = 0;
};
