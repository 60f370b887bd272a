#pragma once

#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

/** One node of the tag tree as users know it. */
struct ExpectedTag
{
    QString key;
    QString caption;
    QString parent; ///< the key of the node above; empty for the root
    bool isItem = false;
    QString before;
    QString after;
    qsizetype caret = -1; ///< from where the selection began; -1 where the insertion ends
    QString opening;
    QString closing;
};

/**
 * The nodes that the table of the file `path` lists, a line each, with tabs between key, caption, key of the
 * node above and, for an item, what goes before and behind the selection, the caret and the preview's texts.
 */
inline QList<ExpectedTag> ReadTagTable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    QList<ExpectedTag> tags;
    QStringList lines = QString::fromLatin1(file.readAll()).split(u'\n');
    lines.removeLast();
    for (const QString& line : lines) {
        const QStringList cells = line.split(u'\t');
        ExpectedTag tag;
        tag.key = cells.at(0);
        tag.caption = cells.at(1);
        tag.parent = cells.at(2);
        if (cells.size() > 3) {
            tag.isItem = true;
            tag.before = cells.at(3);
            tag.after = cells.at(4);
            tag.caret = cells.at(5) == u"end" ? -1 : cells.at(5).toInt();
            tag.opening = cells.at(6);
            tag.closing = cells.at(7);
        }
        tags << tag;
    }
    return tags;
}
