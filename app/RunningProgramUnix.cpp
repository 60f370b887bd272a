#include "app/RunningProgram.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/** How long a program that runs already may take to answer, before the files are opened without it. */
constexpr int answerPatience = 3000;
constexpr std::chrono::milliseconds beforeNextAttempt(500);
constexpr int mostAttempts = 5;
constexpr char filesTaken = '1';

/** Whether the program at the other end is of the same user: the name of the connection is no secret. */
bool IsOfThisUser(const QLocalSocket& socket)
{
#ifdef SO_PEERCRED
    ucred peer = {};
    socklen_t size = sizeof peer;
    return getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer, &size) ==
               0 &&
           peer.uid == getuid();
#else
    return socket.isValid();
#endif
}

} // namespace

RunningProgram::RunningProgram(const QString& programFolder)
{
    const QByteArray whose =
        QFile::encodeName(QDir(programFolder).canonicalPath()) + ' ' + QByteArray::number(getuid());
    name_ = QStringLiteral("cartolen-") +
            QString::fromLatin1(QCryptographicHash::hash(whose, QCryptographicHash::Sha1).toHex());
}

RunningProgram::~RunningProgram() = default;

bool RunningProgram::HandOver(const QStringList& files)
{
    QLocalSocket socket;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(name_);
    if (!socket.waitForConnected(answerPatience) || !IsOfThisUser(socket)) {
        return false;
    }
    QByteArray block;
    QDataStream stream(&block, QIODevice::WriteOnly);
    stream << files;
    socket.write(block);
    QElapsedTimer clock;
    clock.start();
    while (socket.bytesAvailable() == 0 && clock.elapsed() < answerPatience) {
        if (!socket.waitForReadyRead(answerPatience)) {
            return false;
        }
    }
    return socket.readAll().startsWith(filesTaken);
}

void RunningProgram::Listen()
{
    if (server_ != nullptr && server_->isListening()) {
        return;
    }
    other_.reset();
    server_ = std::make_unique<QLocalServer>();
    server_->setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(server_.get(), &QLocalServer::newConnection, this, &RunningProgram::Server_NewConnection);
    if (server_->listen(name_) || ++attempts_ > mostAttempts) {
        return;
    }
    other_ = std::make_unique<QLocalSocket>();
    other_->setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    const auto tryAgain = [this] { QTimer::singleShot(beforeNextAttempt, this, &RunningProgram::Listen); };
    connect(other_.get(), &QLocalSocket::connected, this, [this] { attempts_ = 0; });
    connect(other_.get(), &QLocalSocket::disconnected, this, tryAgain);
    connect(other_.get(), &QLocalSocket::errorOccurred, this, [this, tryAgain] {
        if (other_->state() == QLocalSocket::UnconnectedState) {
            tryAgain();
        }
    });
    other_->connectToServer(name_);
}

void RunningProgram::Server_NewConnection()
{
    while (QLocalSocket* const socket = server_->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!IsOfThisUser(*socket)) {
            socket->abort();
            continue;
        }
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { Read(*socket); });
        Read(*socket);
    }
}

void RunningProgram::Read(QLocalSocket& socket)
{
    QDataStream stream(&socket);
    stream.startTransaction();
    QStringList files;
    stream >> files;
    if (stream.commitTransaction()) {
        socket.write(&filesTaken, 1);
        socket.flush();
        Q_EMIT FilesCame(files);
    }
}
