// The desktop of Linux and its like: the tools that every such desktop brings along.

#include "app/Desktop.h"
#include "app/rules/ShellErrors.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibrary>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <memory>
#include <optional>
#include <system_error>
#include <unistd.h>

namespace {

/** What does a verb. Qt's own service for it does nothing where no desktop runs. */
struct Tool
{
    const char* verb;
    const char* program;
    bool isPrinter = false;
};
constexpr auto tools = std::to_array<Tool>({ { "Open", "xdg-open" }, { "Print", "lp", true } });

/** The exit code by which xdg-open says that a tool it needs is missing. */
constexpr int toolMissing = 3;

/** A program that ends with an error later than this, in milliseconds, had been started all right. */
constexpr qint64 patience = 10'000;

struct StartFailure
{
    int systemError;
    int code;
};
constexpr auto startFailures = std::to_array<StartFailure>({
    { ENOENT, shellNoAssociation },
    { EACCES, shellAccessDenied },
    { ENOEXEC, shellBadFormat },
    { ENOMEM, shellOutOfMemory },
    { EAGAIN, shellOutOfMemory },
});

bool IsAddress(const QString& target)
{
    return !target.startsWith(u'/') && target.contains(QStringLiteral("://"));
}

/** Why the file `path` cannot be handed over, before a tool is asked that would say it less clearly. */
std::optional<int> TroubleWith(const QString& path)
{
    const QFileInfo file(path);
    const QFileInfo folder(file.absolutePath());
    if (!folder.exists()) {
        return shellPathNotFound;
    }
    if (!folder.isExecutable()) {
        return shellAccessDenied;
    }
    if (!file.exists()) {
        return shellFileNotFound;
    }
    return file.isReadable() ? std::nullopt : std::optional<int>(shellAccessDenied);
}

int CodeOfFailedStart(const QProcess& process)
{
    // The system's number is only told within Qt's text.
    const auto* const failure = std::ranges::find_if(startFailures, [&process](const StartFailure& row) {
        return process.errorString().contains(
            QString::fromLocal8Bit(std::generic_category().message(row.systemError)));
    });
    return failure != startFailures.end() ? failure->code : shellUnknown;
}

int CodeOfExit(int exitCode, QProcess::ExitStatus status)
{
    if (status != QProcess::NormalExit || exitCode >= leastShellSuccess) {
        return shellUnknown;
    }
    if (exitCode == 0) {
        return leastShellSuccess;
    }
    return exitCode == toolMissing ? shellNoAssociation : exitCode;
}

/** What a started program must not take over from this one. Runs in the new process. */
void BecomeIndependent()
{
    ::setsid();
    std::signal(SIGXFSZ, SIG_DFL);
}

/**
 * A file in UTF-8: the one at `path` where that makes no difference, or a copy by the file's own name, which
 * becomes the title of the job, in a folder that lives with `process`. One that cannot be made is done
 * without.
 */
QString CopyInUtf8(const QString& path, TextEncoding encoding, const QObject* process)
{
    if (encoding != TextEncoding::Windows1252) {
        return path;
    }
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const QByteArray text = DecodeText(bytes, encoding).toUtf8();
    if (text == bytes) {
        return path;
    }
    const auto folder =
        std::make_shared<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/cartolen-print-XXXXXX"));
    QFile copy(folder->filePath(QFileInfo(path).fileName()));
    if (!copy.open(QIODevice::WriteOnly) || copy.write(text) != text.size() || !copy.flush()) {
        return path;
    }
    QObject::connect(process, &QObject::destroyed, process, [folder] { (void)folder->remove(); });
    return copy.fileName();
}

/**
 * Makes `process` print the file `path`: lp sends a file as it is and names the encoding of its locale with
 * it, whatever that is here. Printers know few encodings besides UTF-8.
 */
QString ForPrinting(const QString& path, TextEncoding encoding, QProcess* process)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process->setProcessEnvironment(environment);
    return CopyInUtf8(path, encoding, process);
}

void Start(
    const QString& program, const Tool& tool, const QString& target, TextEncoding encoding,
    const Desktop::Report& report)
{
    // It is nobody's: destroying it would end what it has started, and that may outlive this program.
    auto* const process = new QProcess;
    const QString argument = tool.isPrinter ? ForPrinting(target, encoding, process) : target;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier(BecomeIndependent);
    QElapsedTimer sinceStart;
    sinceStart.start();
    QObject::connect(process, &QProcess::finished, process, [=](int exitCode, QProcess::ExitStatus status) {
        process->deleteLater();
        report(sinceStart.elapsed() > patience ? leastShellSuccess : CodeOfExit(exitCode, status));
    });
    QObject::connect(process, &QProcess::errorOccurred, process, [=](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            process->deleteLater();
            report(CodeOfFailedStart(*process));
        }
    });
    process->start(program, { argument });
}

/**
 * Whether the lock of the X server's keyboard is on. Qt has brought the library along where it speaks to a
 * server; it is not linked, so that a system without X needs none.
 */
std::optional<bool> IsLockedOnX(Display* display)
{
    using Window = unsigned long;
    using FindRoot = Window (*)(Display*);
    using QueryPointer = int (*)(Display*, Window, Window*, Window*, int*, int*, int*, int*, unsigned*);
    constexpr unsigned lockMask = 1U << 1;
    static QLibrary library(QStringLiteral("X11"), 6);
    static const auto findRoot = reinterpret_cast<FindRoot>(library.resolve("XDefaultRootWindow"));
    // What it tells of the pointer includes the keyboard's modifiers.
    static const auto queryPointer = reinterpret_cast<QueryPointer>(library.resolve("XQueryPointer"));
    if (findRoot == nullptr || queryPointer == nullptr) {
        return std::nullopt;
    }
    Window root = 0;
    Window child = 0;
    std::array<int, 4> places = {};
    unsigned modifiers = 0;
    queryPointer(
        display, findRoot(display), &root, &child, &places[0], &places[1], &places[2], &places[3],
        &modifiers);
    return (modifiers & lockMask) != 0;
}

class LinuxDesktop : public Desktop
{
public:
    void Execute(const ShellRequest& request, const Report& report) override
    {
        const bool isAddress = IsAddress(request.Target);
        // A whole path: nothing of a name can be taken for an option.
        const QString target = isAddress ? request.Target : QFileInfo(request.Target).absoluteFilePath();
        if (const std::optional<int> trouble = isAddress ? std::nullopt : TroubleWith(target)) {
            report(*trouble);
            return;
        }
        const auto* const tool = std::ranges::find(tools, request.Verb.toLatin1(), &Tool::verb);
        const QString program = tool != tools.end()
                                    ? QStandardPaths::findExecutable(QString::fromLatin1(tool->program))
                                    : QString();
        if (program.isEmpty()) {
            report(shellNoAssociation);
            return;
        }
        Start(program, *tool, target, request.Encoding, report);
    }

    bool ShowAboutBox(quintptr, const QString&, const QString&) override { return false; }

    [[nodiscard]] std::optional<bool> IsCapsLockOn() const override
    {
        const auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
        auto* const x11 = application != nullptr
                              ? application->nativeInterface<QNativeInterface::QX11Application>()
                              : nullptr;
        return x11 != nullptr && x11->display() != nullptr ? IsLockedOnX(x11->display()) : std::nullopt;
    }
};

/**
 * Where an installed program, whose executable lies in `executableFolder`, has what all users share, or
 * nothing when it is not installed. A folder with a Data is complete in itself, whatever lies around it.
 */
std::optional<QString> SharedFolder(const QString& executableFolder)
{
    const QFileInfo folder(executableFolder);
    const QString shared = QDir::cleanPath(folder.path() + u"/share/cartolen");
    const bool isInstalled = folder.fileName() == u"bin" && QFileInfo(shared).isDir() &&
                             !QFileInfo(executableFolder + u"/Data").isDir();
    return isInstalled ? std::optional(shared) : std::nullopt;
}

/** Where users have their data. A relative XDG_DATA_HOME is to be ignored; Qt would take it. */
QString DataHome()
{
    const QString named = qEnvironmentVariable("XDG_DATA_HOME");
    return named.startsWith(u'/') ? QDir::cleanPath(named) : QDir::homePath() + u"/.local/share";
}

/** Makes what is missing of the folders of `path`, for the user alone, as is the rule below XDG_DATA_HOME. */
void MakeFolder(const QString& path)
{
    if (!QFileInfo(path).isDir()) {
        MakeFolder(QFileInfo(path).path());
        QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

} // namespace

ProgramFolders PrepareProgramFolders(const QString& executableFolder)
{
    const std::optional<QString> shared = SharedFolder(executableFolder);
    if (!shared) {
        return { executableFolder, executableFolder };
    }
    const QString own = DataHome() + QStringLiteral("/cartolen");
    MakeFolder(own + u"/Data");
    MakeFolder(own + u"/Temp");
    return { own, *shared };
}

std::unique_ptr<Desktop> MakeDesktop()
{
    return std::make_unique<LinuxDesktop>();
}
