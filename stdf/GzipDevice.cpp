#include "GzipDevice.h"

#include "Texts.h"

#include "runs/Unpacker.h"

#include <zlib.h>

#include <limits>

namespace ZYN::Stdf {

namespace {

constexpr qint64 inputSize = 64 * 1024;
/// Window size of zlib plus the flag for a gzip header.
constexpr int gzipWindow = MAX_WBITS + 16;

} // namespace

GzipDevice::GzipDevice(QIODevice* sourceDevice)
    : source(sourceDevice)
    , stream(std::make_unique<z_stream_s>())
{
    if (inflateInit2(stream.get(), gzipWindow) != Z_OK)
        Fail(Texts::tr("not enough memory to decompress"));
    const QByteArray head = source->peek(MarkSize);
    if (Unpacker::Fits({head.data(), std::size_t(head.size())}))
        unpacker = std::make_unique<Unpacker>([this] {
            input = source->read(inputSize);
            return std::string_view(input.constData(), std::size_t(input.size()));
        });
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

GzipDevice::~GzipDevice()
{
    inflateEnd(stream.get());
}

bool GzipDevice::IsGzip(const QByteArray& start)
{
    return start.startsWith("\x1f\x8b") || Unpacker::Fits({start.data(), std::size_t(start.size())});
}

void GzipDevice::Fail(const QString& text)
{
    failed = true;
    setErrorString(text);
}

bool GzipDevice::Refill()
{
    if (stream->avail_in > 0)
        return true;
    input = source->read(inputSize);
    stream->next_in = reinterpret_cast<Bytef*>(input.data());
    stream->avail_in = static_cast<uInt>(input.size());
    return !input.isEmpty();
}

// Files on tapes and block devices are filled up with zeros.
bool GzipDevice::SkipPadding()
{
    const uInt before = stream->avail_in;
    while (stream->avail_in > 0 && *stream->next_in == 0) {
        ++stream->next_in;
        --stream->avail_in;
    }
    return stream->avail_in < before;
}

qint64 GzipDevice::readData(char* data, qint64 maxSize)
{
    if (unpacker) {
        const auto count = qint64(unpacker->Read(data, std::size_t(maxSize)));
        if (!unpacker->Error().empty())
            Fail(Texts::tr("the compressed data is damaged: %1")
                     .arg(QString::fromStdString(unpacker->Error())));
        return count > 0 ? count : -1;
    }
    const qint64 wanted = qMin<qint64>(maxSize, std::numeric_limits<uInt>::max());
    stream->next_out = reinterpret_cast<Bytef*>(data);
    stream->avail_out = static_cast<uInt>(wanted);
    while (!failed && stream->avail_out > 0) {
        if (!Refill()) {
            if (insideMember)
                Fail(Texts::tr("the gzip data breaks off"));
            break;
        }
        if (!insideMember && SkipPadding())
            continue;
        insideMember = true;
        const int state = inflate(stream.get(), Z_NO_FLUSH);
        if (state == Z_STREAM_END) {
            insideMember = false;
            inflateReset(stream.get());
        } else if (state != Z_OK && state != Z_BUF_ERROR) {
            Fail(Texts::tr("the gzip data is damaged"));
        }
    }
    const qint64 count = wanted - stream->avail_out;
    return count > 0 ? count : -1;
}

qint64 GzipDevice::writeData(const char*, qint64)
{
    return -1;
}

} // namespace ZYN::Stdf
