#pragma once

#include <QObject>
#include <functional>

class PageDocument;
class PageMapsModel;
class QWidget;
class frmImageMap;
struct ImgMap;

/** The commands of the Page menu about the image maps that the page has. */
class PageMapCommands : public QObject
{
    Q_OBJECT

public:
    /** `openEditor` shows the image map editor and gives it. */
    PageMapCommands(
        QWidget* window, const ImgMap& imgMap, PageDocument& page, std::function<frmImageMap&()> openEditor);

    void mnuPEditMap_Click();
    void mnuPToToday_Click();

private:
    [[nodiscard]] PageMapsModel* ReadPage();
    void ShowList(PageMapsModel* model);
    void Open(const PageMapsModel& model, int row);

    QWidget* window_;
    const ImgMap& imgMap_;
    PageDocument& page_;
    std::function<frmImageMap&()> openEditor_;
};
