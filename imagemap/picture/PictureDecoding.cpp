#include "imagemap/picture/PictureDecoding.h"

#include "imagemap/picture/PictureLimits.h"

#include <QFileInfo>
#include <QImageReader>

namespace {

/** No picture within the limit on its pixels needs more, and reading on takes seconds. */
constexpr qint64 fileBytesAtMost = 512LL * 1024 * 1024;

/**
 * Gives Qt's image readers more memory than their usual 128 MB, which a 40-megapixel photograph exceeds. The
 * limit belongs to the whole process: it is raised for one picture and put back for everything else.
 */
class RaisedAllocationLimit
{
public:
    RaisedAllocationLimit()
        : previous_(QImageReader::allocationLimit())
    {
        QImageReader::setAllocationLimit(pictureMegabytesAtMost);
    }
    ~RaisedAllocationLimit() { QImageReader::setAllocationLimit(previous_); }
    Q_DISABLE_COPY_MOVE(RaisedAllocationLimit)

private:
    int previous_;
};

} // namespace

bool MayBePicture(const QString& path)
{
    // Opening a pipe or a device could wait for ever, so the file's kind is asked for first.
    const QFileInfo info(path);
    return info.isFile() && info.size() > 0 && info.size() <= fileBytesAtMost;
}

QImage DecodePicture(QIODevice& device, const QByteArray& format)
{
    const RaisedAllocationLimit raised;
    QImageReader reader(&device, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    QImage image;
    // A failing reader may leave half a picture behind, so what it says counts and not what it leaves.
    return reader.read(&image) ? image : QImage();
}
