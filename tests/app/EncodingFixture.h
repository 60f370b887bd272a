#pragma once

#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFrame>
#include <QPushButton>

/** A page whose encoding is told and chosen. */
class EncodingFixture : public DocumentsFixture
{
protected:
    SourceEditor* Editor() { return test_->Editor(); }
    QWidget* Bar() { return test_->Find<QFrame>("barMessage"); }

    /** What the bar above the text says; empty while there is none. */
    QString Message() { return Bar()->isVisible() ? test_->Find<QLabel>("lblMessage")->text() : QString(); }

    /** The names of the buttons that are offered. */
    QStringList Answers()
    {
        QStringList names;
        for (const QPushButton* const button : Bar()->findChildren<QPushButton*>()) {
            if (button->isVisible() && button->objectName() != u"btnCloseMessage") {
                names << button->objectName();
            }
        }
        return names;
    }

    void Answer(const char* button) { Click(test_->Find<QPushButton>(button)); }

    /** Chooses an encoding by its name, be it the one that is shown. */
    void Choose(const char* encoding)
    {
        auto* const box = test_->Find<QComboBox>("cmbEncoding");
        const int row = box->findText(QString::fromLatin1(encoding));
        box->showPopup();
        auto* const list = box->view();
        QTRY_VERIFY(list->isVisible());
        list->setCurrentIndex(box->model()->index(row, 0));
        QTest::keyClick(list, Qt::Key_Return);
        QTRY_VERIFY(!list->isVisible());
        QCOMPARE(box->currentText(), QString::fromLatin1(encoding));
    }
    QString Encoding() { return test_->Find<QComboBox>("cmbEncoding")->currentText(); }
    bool IsChanged() { return test_->window.File().IsChanged(); }
    QByteArray Saved()
    {
        test_->Press(Qt::Key_S, Qt::ControlModifier);
        return BytesOf(Path("page.htm"));
    }
};
