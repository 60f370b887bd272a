#pragma once

#include "shared/HelpViewer.h"

#include <QStringList>

/** Shows nothing: notes what it is asked for. */
class RecordingHelp : public HelpViewer
{
public:
    void ShowContents(QWidget*) override { Asked << QStringLiteral("contents"); }
    void ShowSearch(QWidget*) override { Asked << QStringLiteral("search"); }
    void ShowTopic(QWidget*, QStringView topic) override { Asked << topic.toString(); }

    QStringList Asked;
};
