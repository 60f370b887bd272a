#pragma once

#include <QObject>

class Desktop;
class DocumentFile;
class QLabel;
class QStatusBar;

/** The panels of the main window's status bar: Caps Lock, one that stays empty, and the document's name. */
class MainPanels : public QObject
{
    Q_OBJECT

public:
    /** Puts them on `bar`, which owns it; the others must live longer. */
    MainPanels(QStatusBar* bar, const Desktop& desktop, const DocumentFile& file);

    /** What a panel takes, in pixels. */
    [[nodiscard]] int Height() const;

private:
    void ShowDocumentName(const QString& name);

    QLabel* panel1_;
    QLabel* panel2_;
    QLabel* panel3_;
};
