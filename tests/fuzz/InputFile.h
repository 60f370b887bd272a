#pragma once

#include "FuzzTarget.h"

#include <QTemporaryFile>

/** An input as a file, which lives as long as this. */
class InputFile
{
public:
    explicit InputFile(QByteArrayView bytes)
    {
        const bool isWritten =
            file_.open() && file_.write(bytes.data(), bytes.size()) == bytes.size() && file_.flush();
        Demand(isWritten, "there is room for an input file");
    }

    [[nodiscard]] QString Path() const { return file_.fileName(); }

    /** What the file holds by now. */
    [[nodiscard]] QByteArray Content()
    {
        file_.seek(0);
        return file_.readAll();
    }

private:
    QTemporaryFile file_;
};
