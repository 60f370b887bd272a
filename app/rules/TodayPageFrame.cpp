#include "app/rules/TodayPageFrame.h"

TodayPageFrame MakeTodayPageFrame(const QString& language)
{
    // A page without a title is not valid, and one without a viewport is shown tiny on a telephone.
    const QString begin = u"<!DOCTYPE html>\r\n<html lang=\"" + language +
                          u"\">\r\n<head>\r\n<meta charset=\"utf-8\">\r\n"
                          u"<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\r\n"
                          u"<title>New Page</title>\r\n</head>\r\n<body>\r\n";
    return { .Text = begin + u"\r\n</body>\r\n</html>\r\n", .Caret = begin.size() };
}
