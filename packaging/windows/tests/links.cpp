// Writes a links file, or prints what one holds, so that two systems can read what the other has written.
//
// cartolen-links write FILE | cartolen-links print FILE RESULT

#include "shared/LinksFile.h"
#include "shared/SavedLinks.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

namespace {

bool Write(const QString& path)
{
    ImgMap imgMap;
    AddSavedLink(imgMap, QStringLiteral("https://cartolen.example/?a=1&b=2"));
    AddSavedLink(imgMap, QStringLiteral("gone.htm"));
    AddSavedLink(imgMap, QStringLiteral("caf\u00E9 \u20AC.htm"));
    AddSavedLink(imgMap, QString(300, u'x'));
    DeleteSavedLink(imgMap, 2);
    return WriteSavedLinks(path, imgMap);
}

bool Print(const QString& path, const QString& resultPath)
{
    const SavedLinks saved = ReadSavedLinks(path);
    QString text = saved.isDamaged ? QStringLiteral("damaged\n") : QString();
    for (const SavedLink& link : saved.links) {
        text += QString::number(link.Mark) + u' ' + link.Url + u'\n';
    }
    QFile result(resultPath);
    return result.open(QIODevice::WriteOnly) && result.write(text.toUtf8()) > 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == u"write") {
        return Write(arguments[2]) ? 0 : 1;
    }
    if (arguments.size() == 4 && arguments[1] == u"print") {
        return Print(arguments[2], arguments[3]) ? 0 : 1;
    }
    return 2;
}
