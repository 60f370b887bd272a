#pragma once

#include <QByteArray>
#include <X11/ICE/ICElib.h>
#include <sys/types.h>

/**
 * A session manager as a desktop has one, in a process of its own. It tells the program that the user logs
 * out and hears what the program says to it.
 */
class SessionManager
{
public:
    /** Call it before the application is made, which then belongs to this session. */
    [[nodiscard]] bool Start();
    ~SessionManager();

    SessionManager() = default;
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;

    /** Asks the program to save, since the user logs out; it may talk to the user if `mayInteract`. */
    void LogOut(bool mayInteract = true) const { Tell(mayInteract ? 's' : 'n'); }
    /** Ends the session: the program is to go. */
    void Die() const { Tell('q'); }

    /**
     * What the program has said since the last time, without waiting: "r" that it takes part, "d" that it has
     * saved, "c" that the logout is to be cancelled.
     */
    [[nodiscard]] QByteArray Heard() const;

private:
    void Tell(char what) const;

    IceListenObj* listeners_ = nullptr;
    int listenerCount_ = 0;
    pid_t process_ = 0;
    int telling_ = -1;
    int hearing_ = -1;
};
