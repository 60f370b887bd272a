#pragma once

#include "app/recovery/RecoveryCopy.h"
#include "imagemap/model/MapDocument.h"

#include <QFile>

/** A page with everything in it that a text can hold. */
inline PageCopy SomePage()
{
    PageCopy page{ .Document = { .Name = QStringLiteral("/home/me/gr\u00fc\u00dfe \u65e5.htm"),
                                 .Encoding = TextEncoding::Utf8WithMark,
                                 .IsHandledAnew = true,
                                 .FoundUtf8 = TextEncoding::Utf8,
                                 .ContentHash = 42,
                                 .IsLineEndAppended = true } };
    page.Pieces << QStringLiteral("a\r\nb\n\u65e5\r") + QChar(0xD83D) + QChar(0xDE00) + QChar(0) +
                       QChar(0xDC80);
    return page;
}

/** A map with an area of each shape, drawn, the first of them deleted again so that it left its marks. */
inline MapCopy SomeMap()
{
    MapDocument map;
    map.SetPicture(QStringLiteral("/pictures/harbour.jpg"));
    map.Script().SetMode(JSTextArea);
    map.Script().SetModeDefault(QStringLiteral("nothing yet"));
    for (const qint16 kind : { kindRectangle, kindCircle, kindRectangle }) {
        FigureStore& ledger = map.Ledger();
        ledger.CurrentKind = kind;
        ledger.StartX = 10;
        ledger.EndX = 30;
        ledger.EndY = 40;
        ledger.CurrentRadius = 20;
        ledger.AppendFigure();
        LinkEntry entry;
        entry.SetText(LinkField::Link, QStringLiteral("a.htm"));
        map.LinkNewArea(entry);
    }
    map.DeleteLastFigure();
    return { .State = map.State(),
             .Fields = { { QStringLiteral("txtName"), QStringLiteral("harbour") } },
             .DrawnCorners = { { 1, 2 }, { 30, 40 } } };
}

inline QByteArray BytesOfFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

inline bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
