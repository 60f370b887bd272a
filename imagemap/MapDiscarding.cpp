#include "imagemap/MapDiscarding.h"

#include "imagemap/UpdateCommand.h"
#include "imagemap/model/MapDocument.h"
#include "shared/ImgMap.h"
#include "widgets/WindowHelpers.h"

namespace {

constexpr const char* deleteMapQuestion = "Do you want to delete your Image Map?";

} // namespace

bool MapDiscarding::Discard()
{
    if (updating_.IsOfPage()) {
        return updating_.Leave();
    }
    if (!map_.HasContent()) {
        return true;
    }
    if (!AskYesNo(&window_, QString::fromLatin1(deleteMapQuestion))) {
        return false;
    }
    map_.Clear();
    return true;
}

bool MapDiscarding::DiscardAtClosing()
{
    if (updating_.IsOfPage()) {
        return updating_.Leave();
    }
    if (!map_.HasContent()) {
        return true;
    }
    if (imgMap_.ContinueAction) {
        ShowMessage(&window_, QMessageBox::NoIcon, QStringLiteral("Your Image Map must be deleted"));
    } else if (!AskYesNo(
                   &window_, QString::fromLatin1(deleteMapQuestion),
                   QStringLiteral("Client Side Image Map !"))) {
        return false;
    }
    map_.Clear();
    return true;
}
