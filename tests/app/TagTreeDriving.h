#pragma once

// Before QTest, which the other headers include.
#include "tests/support/WidgetDriving.h"

#include "tests/app/MainWindowFixture.h"
#include "tests/support/TagTable.h"

#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

/** The main window with its tag tree, clicked as a user does. */
class TagTreeFixture : public MainWindowFixture
{
public:
    QTreeWidget* Tree() { return Find<QTreeWidget>("TreeView1"); }

    /** Every node in tree order. */
    QList<QTreeWidgetItem*> Nodes()
    {
        QList<QTreeWidgetItem*> nodes;
        for (QTreeWidgetItemIterator i(Tree()); *i != nullptr; ++i) {
            nodes << *i;
        }
        return nodes;
    }

    static QString KeyOf(const QTreeWidgetItem* node)
    {
        return node != nullptr ? node->data(0, Qt::UserRole + 1).toString() : QString();
    }

    QTreeWidgetItem* Node(const QString& key)
    {
        for (QTreeWidgetItem* const node : Nodes()) {
            if (KeyOf(node) == key) {
                return node;
            }
        }
        qFatal("there is no node %s", qPrintable(key));
    }

    /** Opens what `node` lies in and brings it into sight; returns its place in the tree's viewport. */
    QPoint PlaceOf(QTreeWidgetItem* node)
    {
        if (node->parent() != nullptr) {
            node->parent()->setExpanded(true);
        }
        Tree()->scrollToItem(node);
        const QRect place = Tree()->visualItemRect(node);
        return place.intersected(Tree()->viewport()->rect()).center();
    }

    void Click(QTreeWidgetItem* node)
    {
        const QPoint place = PlaceOf(node);
        QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, {}, place);
    }

    void DoubleClick(QTreeWidgetItem* node)
    {
        const QPoint place = PlaceOf(node);
        QTest::mouseDClick(Tree()->viewport(), Qt::LeftButton, {}, place);
    }

    void SetPreview(const QString& text)
    {
        Find<QLabel>("lblQTagsO")->setText(text);
        Find<QLabel>("lblQTagsC")->setText(text);
    }

    /** The texts of both labels. */
    QString Preview() { return Find<QLabel>("lblQTagsO")->text() + u'|' + Find<QLabel>("lblQTagsC")->text(); }
};
