#pragma once

#include <QObject>
#include <QStringList>
#include <memory>

class QLocalServer;
class QLocalSocket;

/**
 * The programs of one user with the same program folder: one of them takes the files that another start is
 * given. When that one ends, another takes its place. There is one source file for Windows, whose Qt comes
 * without what it takes, and one for all others.
 */
class RunningProgram : public QObject
{
    Q_OBJECT

public:
    explicit RunningProgram(const QString& programFolder);
    ~RunningProgram() override;

    /** Gives `files` to a program that runs already; false where none has taken them. */
    [[nodiscard]] bool HandOver(const QStringList& files);

    /** Takes files from now on, at once or when the program ends that does. */
    void Listen();

Q_SIGNALS:
    void FilesCame(const QStringList& files);

private:
    void Server_NewConnection();
    void Read(QLocalSocket& socket);

    QString name_;
    std::unique_ptr<QLocalServer> server_;
    std::unique_ptr<QLocalSocket> other_; ///< to the program that takes files now
    int attempts_ = 0;
};
