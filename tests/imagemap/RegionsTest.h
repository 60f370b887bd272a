#pragma once

#include "tests/imagemap/DrawnAreasTest.h"

#include <QAbstractSpinBox>

/** What the tests of the window that lists areas to be made have in common. */
class RegionsTest : public DrawnAreasTest
{
protected:
    /** Writes `picture` as a PNG and opens it; returns its path. */
    QString OpenPng(const QImage& picture)
    {
        QString path = test_->folder.Path(QStringLiteral("picture.png"));
        if (!picture.save(path)) {
            qFatal("cannot write %s", qPrintable(path));
        }
        test_->editor->OpenNamedImage(path);
        Activate();
        return path;
    }

    QPointer<QDialog> OpenBy(const char* command)
    {
        Activate();
        return test_->DialogOpenedBy([this, command] { Trigger(command); });
    }

    static QAbstractItemModel* Model(const QDialog* dialog)
    {
        return ::Find<QTreeView>(dialog, "lstRegions")->model();
    }

    static int CountOf(const QDialog* dialog) { return Model(dialog)->rowCount(); }

    static QString TextIn(const QDialog* dialog) { return ::Find<QLabel>(dialog, "lblRegions")->text(); }

    static QList<int> TickedRows(const QDialog* dialog)
    {
        QList<int> rows;
        for (int row = 0; row < CountOf(dialog); ++row) {
            if (Model(dialog)->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked) {
                rows << row;
            }
        }
        return rows;
    }

    static void TypeNumber(const QDialog* dialog, const char* name, const char* number)
    {
        auto* const field = ::Find<QAbstractSpinBox>(dialog, name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(number));
    }

    static void Close(const QPointer<QDialog>& dialog, const char* button)
    {
        QTRY_VERIFY(::Find<QPushButton>(dialog, button)->isEnabled());
        ClickIn(dialog, button);
        QTRY_VERIFY(dialog == nullptr);
    }
};
