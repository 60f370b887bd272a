#pragma once

#include <QFile>
#include <QString>
#include <sys/stat.h>
#include <unistd.h>

/** While it lives, the process has the rights of an ordinary user, also when root runs the tests. */
class OrdinaryRights
{
public:
    OrdinaryRights()
    {
        if (group_ == 0 || user_ == 0) {
            isReduced_ = setegid(nobody) == 0 && seteuid(nobody) == 0;
        }
    }
    ~OrdinaryRights()
    {
        if (isReduced_) {
            (void)!seteuid(user_);
            (void)!setegid(group_);
        }
    }
    Q_DISABLE_COPY_MOVE(OrdinaryRights)

private:
    static constexpr uid_t nobody = 65534;

    uid_t user_ = geteuid();
    gid_t group_ = getegid();
    bool isReduced_ = false;
};

/** Sets the permissions of a file or folder, as in chmod. */
inline bool SetMode(const QString& path, unsigned mode)
{
    return chmod(QFile::encodeName(path).constData(), mode) == 0;
}
