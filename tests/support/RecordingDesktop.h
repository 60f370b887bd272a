#pragma once

#include "app/Desktop.h"

#include <QList>

/** Launches nothing: notes what it is asked, and answers as it is told. */
class RecordingDesktop : public Desktop
{
public:
    struct AboutBox
    {
        quintptr window;
        QString application;
        QString details;
    };

    void Execute(const ShellRequest& request, const Report& report) override
    {
        Requests << request;
        report(Code);
    }

    bool ShowAboutBox(quintptr window, const QString& application, const QString& details) override
    {
        AboutBoxes << AboutBox{ window, application, details };
        return HasAboutBox;
    }

    [[nodiscard]] std::optional<bool> IsCapsLockOn() const override { return CapsLockOn; }

    QList<ShellRequest> Requests;
    QList<AboutBox> AboutBoxes;
    int Code = leastShellSuccess;
    bool HasAboutBox = true;
    std::optional<bool> CapsLockOn;
};
