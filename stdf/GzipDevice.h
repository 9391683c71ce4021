#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

#include <memory>

struct z_stream_s;

namespace ZYN {
class Unpacker;
}

namespace ZYN::Stdf {

/// Reads compressed data of another device: gzip (RFC 1952), also several members one after the other, bzip2,
/// xz and zstd. Sequential, read-only. Damaged data ends it early with an error text.
class GzipDevice : public QIODevice {
public:
    /// \param source open for reading, at the start of the gzip data; borrowed
    explicit GzipDevice(QIODevice* source);
    ~GzipDevice() override;

    bool isSequential() const override { return true; }
    /// Whether the data ended before it was complete; `errorString` says why.
    bool HasFailed() const { return failed; }
    /// Whether data begins as compressed data does; `MarkSize` bytes are enough.
    static bool IsGzip(const QByteArray& start);
    static constexpr qint64 MarkSize = 6;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    bool Refill();
    bool SkipPadding();
    void Fail(const QString& text);

    QIODevice* source;
    std::unique_ptr<z_stream_s> stream;
    std::unique_ptr<Unpacker> unpacker; ///< null: it is gzip
    QByteArray input;
    bool insideMember = false;
    bool failed = false;
};

} // namespace ZYN::Stdf
