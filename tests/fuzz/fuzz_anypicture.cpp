// Pictures of all forms through their checks and the decoders.

#include "FuzzTarget.h"
#include "InputFile.h"
#include "imagemap/picture/AnyPicture.h"

#include <QGuiApplication>

namespace {

void IgnoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QtMessageHandler messages = qInstallMessageHandler(IgnoreMessage);
    Q_UNUSED(messages);
    // Text in a drawing asks for fonts.
    static int count = 1;
    static char name[] = "fuzz_anypicture";
    static char* arguments[] = { name, nullptr };
    static const auto* const application = new QGuiApplication(count, arguments);
    Q_UNUSED(application);

    const int limit = QImageReader::allocationLimit();
    const InputFile file(BytesOf(data, size));
    const PictureReading reading = ReadAnyPicture(file.Path());
    Demand(QImageReader::allocationLimit() == limit, "the limit for other pictures is left alone");
    Demand(reading.Picture.isNull() != reading.Problem.isEmpty(), "there is a picture or a problem");
    if (!reading.Picture.isNull()) {
        Demand(reading.Picture.format() == QImage::Format_RGB32, "a picture has plain opaque pixels");
        Demand(reading.Picture.devicePixelRatio() == 1.0, "a picture's pixels are its own");
    }
    return 0;
}
