// The Qt that is built for Windows has no Qt Network: each start opens its files itself.

#include "app/RunningProgram.h"

class QLocalServer
{
};

class QLocalSocket
{
};

RunningProgram::RunningProgram(const QString& programFolder)
    : name_(programFolder)
{
}

RunningProgram::~RunningProgram() = default;

bool RunningProgram::HandOver(const QStringList&)
{
    return false;
}

void RunningProgram::Listen() {}

void RunningProgram::Server_NewConnection() {}

void RunningProgram::Read(QLocalSocket&) {}
