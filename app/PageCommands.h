#pragma once

class QWidget;
class SourceEditor;

/** The commands of the Page menu that work on the text and have no window of their own. */
class PageCommands
{
public:
    PageCommands(QWidget* window, SourceEditor& editor);

    void mnuPGoTo_Click();

private:
    QWidget* window_;
    SourceEditor& editor_;
};
