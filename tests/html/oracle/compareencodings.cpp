// Compares what pages declare as their encoding with what html-encoding-sniffer finds. A file, as
// encodings.js writes it, holds for each page its name, its bytes and the encoding.

#include "html/DeclaredEncoding.h"

#include <QDataStream>
#include <QFile>
#include <QTextStream>

int main(int argc, char* argv[])
{
    // A pipe may give less than is asked for while its writer is busy, which a stream takes for the end.
    QFile input(argc == 2 ? QFile::decodeName(argv[1]) : QString());
    if (!input.open(QIODevice::ReadOnly)) {
        return EXIT_FAILURE;
    }
    QDataStream stream(&input);
    qint32 count = 0;
    int different = 0;
    int declared = 0;
    stream >> count;
    for (qint32 index = 0; index < count && stream.status() == QDataStream::Ok; ++index) {
        QString name;
        QByteArray page;
        QString expected;
        stream >> name >> page >> expected;
        const QLatin1String mark = EncodingOfMark(page);
        const QLatin1String found = mark.isEmpty() ? EncodingOfMarkup(page) : mark;
        declared += found.isEmpty() ? 0 : 1;
        if (found != expected) {
            QTextStream(stdout) << name << ": " << found << " instead of " << expected << "\n---\n"
                                << QString::fromLatin1(page.first(std::min<qsizetype>(page.size(), 1024)))
                                << "\n---\n";
            ++different;
        }
    }
    QTextStream(stdout) << count << " beginnings of pages, " << declared << " with a declaration; in "
                        << different << " another is found than by html-encoding-sniffer\n";
    return stream.status() == QDataStream::Ok && declared > 0 && different == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
