#include "tests/faults/SessionManager.h"

#include <X11/SM/SMlib.h>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

int reports = -1;
SmsConn program = nullptr;

void Report(char what)
{
    (void)!write(reports, &what, 1);
}

Status RegisterClient(SmsConn connection, SmPointer, char* previousId)
{
    if (previousId != nullptr) {
        std::free(previousId);
        return 0;
    }
    char* const id = SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, id);
    std::free(id);
    // Every new program is first asked to save, without having anything to save.
    SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False);
    program = connection;
    return 1;
}

void InteractRequest(SmsConn connection, SmPointer, int)
{
    SmsInteract(connection);
}

void InteractDone(SmsConn connection, SmPointer, Bool isCancelled)
{
    if (isCancelled) {
        Report('c');
        SmsShutdownCancelled(connection);
    }
}

void SaveYourselfRequest(SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}

void SaveYourselfPhase2Request(SmsConn connection, SmPointer)
{
    SmsSaveYourselfPhase2(connection);
}

void SaveYourselfDone(SmsConn connection, SmPointer, Bool)
{
    static bool isFirst = true;
    Report(isFirst ? 'r' : 'd');
    if (isFirst) {
        SmsSaveComplete(connection);
    }
    isFirst = false;
}

void CloseConnection(SmsConn connection, SmPointer, int count, char** reasons)
{
    SmFreeReasons(count, reasons);
    IceConn ice = SmsGetIceConnection(connection);
    SmsCleanUp(connection);
    IceSetShutdownNegotiation(ice, False);
    IceCloseConnection(ice);
    std::_Exit(0);
}

void SetProperties(SmsConn, SmPointer, int count, SmProp** properties)
{
    for (int i = 0; i < count; ++i) {
        SmFreeProperty(properties[i]);
    }
    std::free(properties);
}

void DeleteProperties(SmsConn, SmPointer, int count, char** names)
{
    for (int i = 0; i < count; ++i) {
        std::free(names[i]);
    }
    std::free(names);
}

void GetProperties(SmsConn connection, SmPointer)
{
    SmsReturnProperties(connection, 0, nullptr);
}

Status NewClient(SmsConn, SmPointer, unsigned long* mask, SmsCallbacks* callbacks, char**)
{
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
            SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
            SmsGetPropertiesProcMask;
    callbacks->register_client = { RegisterClient, nullptr };
    callbacks->interact_request = { InteractRequest, nullptr };
    callbacks->interact_done = { InteractDone, nullptr };
    callbacks->save_yourself_request = { SaveYourselfRequest, nullptr };
    callbacks->save_yourself_phase2_request = { SaveYourselfPhase2Request, nullptr };
    callbacks->save_yourself_done = { SaveYourselfDone, nullptr };
    callbacks->close_connection = { CloseConnection, nullptr };
    callbacks->set_properties = { SetProperties, nullptr };
    callbacks->delete_properties = { DeleteProperties, nullptr };
    callbacks->get_properties = { GetProperties, nullptr };
    return 1;
}

Bool EverybodyMayCome(char*)
{
    return True;
}

void Obey(char command)
{
    if (program == nullptr) {
        return;
    }
    switch (command) {
    case 's':
        SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleAny, False);
        break;
    case 'n':
        SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleNone, False);
        break;
    default:
        SmsDie(program);
        break;
    }
}

/** Serves one program until that is gone or nobody gives commands any more. */
[[noreturn]] void Serve(int commands, int count, IceListenObj* listeners)
{
    IceConn ice = nullptr;
    for (;;) {
        std::vector<pollfd> waiting{ { commands, POLLIN, 0 } };
        for (int i = 0; ice == nullptr && i < count; ++i) {
            waiting.push_back({ IceGetListenConnectionNumber(listeners[i]), POLLIN, 0 });
        }
        if (ice != nullptr) {
            waiting.push_back({ IceConnectionNumber(ice), POLLIN, 0 });
        }
        poll(waiting.data(), waiting.size(), -1);
        char command = 0;
        if (waiting[0].revents != 0 && read(commands, &command, 1) != 1) {
            std::_Exit(0);
        }
        if (command != 0) {
            Obey(command);
        }
        for (std::size_t i = 1; i < waiting.size(); ++i) {
            if (waiting[i].revents == 0) {
                continue;
            }
            if (ice == nullptr) {
                IceAcceptStatus status = IceAcceptFailure;
                ice = IceAcceptConnection(listeners[i - 1], &status);
                break;
            }
            if (IceProcessMessages(ice, nullptr, nullptr) == IceProcessMessagesIOError) {
                std::_Exit(0);
            }
        }
    }
}

} // namespace

bool SessionManager::Start()
{
    std::array<int, 2> told{};
    std::array<int, 2> heard{};
    if (pipe(told.data()) != 0 || pipe(heard.data()) != 0) {
        return false;
    }
    std::array<char, 256> error{};
    if (SmsInitialize("Test", "1", NewClient, nullptr, EverybodyMayCome, int(error.size()), error.data()) ==
            0 ||
        IceListenForConnections(&listenerCount_, &listeners_, int(error.size()), error.data()) == 0) {
        return false;
    }
    for (int i = 0; i < listenerCount_; ++i) {
        IceSetHostBasedAuthProc(listeners_[i], EverybodyMayCome);
    }
    char* const address = IceComposeNetworkIdList(listenerCount_, listeners_);
    qputenv("SESSION_MANAGER", address);
    std::free(address);
    process_ = fork();
    if (process_ == 0) {
        reports = heard[1];
        close(told[1]);
        close(heard[0]);
        Serve(told[0], listenerCount_, listeners_);
    }
    close(told[0]);
    close(heard[1]);
    telling_ = told[1];
    hearing_ = heard[0];
    fcntl(hearing_, F_SETFL, O_NONBLOCK);
    return process_ > 0;
}

SessionManager::~SessionManager()
{
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    IceFreeListenObjs(listenerCount_, listeners_);
}

void SessionManager::Tell(char what) const
{
    (void)!write(telling_, &what, 1);
}

QByteArray SessionManager::Heard() const
{
    std::array<char, 64> buffer{};
    const ssize_t length = read(hearing_, buffer.data(), buffer.size());
    return { buffer.data(), length > 0 ? length : 0 };
}
