#pragma once

#include "help/HelpBook.h"
#include "shared/HelpViewer.h"
#include "shared/ImgMap.h"

#include <QObject>
#include <memory>

class HelpWindow;

/**
 * The program's help: opens the book at first use and shows it in one window. A book that is missing or
 * damaged is told, and looked for again the next time.
 */
class HelpDisplay : public QObject, public HelpViewer
{
    Q_OBJECT

public:
    /** The book lies in the folder that `imgMap` names. */
    explicit HelpDisplay(const ImgMap& imgMap);
    ~HelpDisplay() override;

    void ShowContents(QWidget* owner) override;
    void ShowSearch(QWidget* owner) override;
    void ShowTopic(QWidget* owner, QStringView topic) override;

    /** The window, once it has been shown. */
    [[nodiscard]] HelpWindow* Window() const { return window_.get(); }

Q_SIGNALS:
    /** The user follows a link that leads out of the book. */
    void LinkToOutside(const QUrl& url);

private:
    [[nodiscard]] bool IsReady(QWidget* owner);
    [[nodiscard]] QString TroubleText(HelpTrouble trouble) const;
    void Join(const QWidget* owner);

    const ImgMap& imgMap_;
    HelpBook book_;
    std::unique_ptr<HelpWindow> window_;
};
