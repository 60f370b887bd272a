#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <memory>

/** A screen of its own for the program, without a window manager or a session bus, as long as it lives. */
class XServer
{
public:
    /** Call it before the application is made, which then runs on this screen; false where there is none. */
    [[nodiscard]] bool Start()
    {
        const QString program = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        if (program.isEmpty()) {
            return false;
        }
        constexpr int patience = 20'000;
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(
            program, { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                       QStringLiteral("tcp") });
        QByteArray number;
        while (!number.contains('\n') && process_.waitForReadyRead(patience)) {
            number += process_.readAllStandardOutput();
        }
        qputenv("DISPLAY", ":" + number.trimmed());
        qputenv("QT_QPA_PLATFORM", "xcb");
        // This desktop has no session bus. Without being told, libdbus would look for one in ways that depend
        // on what is installed, and where it finds nothing it keeps memory that the leak checker asks for.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        return number.contains('\n');
    }

    ~XServer()
    {
        process_.kill();
        process_.waitForFinished();
    }

    XServer() = default;
    Q_DISABLE_COPY_MOVE(XServer)

private:
    QProcess process_;
};
