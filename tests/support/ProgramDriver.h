#pragma once

#include "app/Startup.h"
#include "codegen/MarkupForm.h"
#include "imagemap/model/MapDocument.h"
#include "shared/ImgMap.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/RecordingDesktop.h"

#include <QDir>
#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QWidget>
#include <functional>
#include <stdexcept>

class QPlainTextEdit;

/** Ends the play with `what` unless `holds`. */
void Check(bool holds, const QString& what);

/** Tells the one who looks on. */
void Say(const QString& text);

/** The part of `window` of that name, which must be there. */
template<class Widget> Widget* FindPart(const QWidget& window, const QString& name)
{
    auto* const found = window.findChild<Widget*>(name);
    Check(found != nullptr, u"there is no " + name);
    return found;
}

/** What goes into a field of a dialog; for a button that browses for a file, the path to choose. */
struct FieldText
{
    const char* field;
    QString text;
};
using FieldTexts = QList<FieldText>;

/**
 * Runs the whole program in this process and uses it as a person would, with mouse and keys on its real
 * windows. What does not happen as it should ends the play with an exception.
 */
class ProgramDriver
{
public:
    /** Called with each window that is worth a look, and with what has just happened in it. */
    using StepSeen = std::function<void(QWidget& window, const QString& step)>;

    /** `folder` becomes the program's folder. */
    explicit ProgramDriver(const QString& folder, StepSeen stepSeen = {});

    void StartProgram();

    /** Answers dialogs as soon as they are there, which no user can follow. */
    void Hurry() { robot_.Hurry(); }

    /** How soon what is not saved is kept for the case that the program ends suddenly. */
    void KeepWithin(std::chrono::milliseconds interval) { imgMap_.KeepingInterval = interval; }

    /** Types the lines around a page and leaves the caret in its empty body; `head` is what its head holds.
     */
    void WritePageFrame(const QString& head);
    void NewPage();
    void SavePage(const QString& path);
    /** Saves a page that has its name. */
    void SaveAgain();
    /** Previews the page; returns the path of the copy that the browser gets. */
    QString Preview();

    void OpenEditor();
    void OpenPicture(const QString& picture);
    /** Says Yes where areas are drawn and the program asks whether they may go. */
    void ChooseMode(JSMode mode);
    /** Ticks or unticks that pictures go into the page without their folders; there must be an area. */
    void NameFilesOnly(bool fileNamesOnly);

    void ChooseForm(MarkupForm form);

    void DrawRectangle(QPoint from, QPoint to, const FieldTexts& link);
    void DrawCircle(QPoint centre, QPoint rim, const FieldTexts& link);
    void DrawPolygon(const QList<QPoint>& corners, const FieldTexts& link);
    /** Outlines the region at that place by its colour. */
    void OutlineRegion(QPoint place, const FieldTexts& link);
    void InsertMap();
    /** Leaves the editor and says Yes to the loss of its figures. */
    void CloseEditor();

    /** Drops what can be undone of the map, which the program keeps until it ends. */
    void ForgetHistory() { map_.History().Forget(); }

    [[nodiscard]] QWidget& MainWindow() const { return *main_; }

    /** A place in the visible part of the picture, in hundredths of its width and height. */
    [[nodiscard]] QPoint At(int x, int y) const;
    [[nodiscard]] QSize PictureSize() const;

    /** Shows the editor with its areas to the one who looks on. */
    void ShowEditor(const QString& step) { Seen(*editor_, step); }

private:
    void Seen(QWidget& window, const QString& step);
    void GoToSource();
    void LinkNextFigure(const QString& shape, const FieldTexts& link, const char* button = "SSCmdOK");
    void FillIn(const QDialog& dialog, const FieldText& text);
    void FinishDialogs();
    void ClickToolbar(int position);
    void Press(Qt::MouseButton button, QPoint place);
    void Release(Qt::MouseButton button, QPoint place);
    void Drag(QPoint from, QPoint to);
    void DragFigure(QPoint from, QPoint to);
    [[nodiscard]] QPoint InWindow(QPoint place) const;

    QDir folder_;
    StepSeen stepSeen_;
    ImgMap imgMap_;
    MapDocument map_;
    RecordingDesktop desktop_; ///< a play opens no programs beside it
    Startup startup_;
    DialogRobot robot_;
    QWidget* main_ = nullptr;
    QPlainTextEdit* source_ = nullptr;
    QWidget* editor_ = nullptr;
    QWidget* surface_ = nullptr;
    QSize visible_;
};
