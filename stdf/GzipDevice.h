#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

#include <memory>

struct z_stream_s;

namespace ZYN::Stdf {

/// Reads gzip data (RFC 1952) of another device, also several members one after the other. Sequential,
/// read-only. Damaged data ends it early with an error text.
class GzipDevice : public QIODevice {
public:
    /// \param source open for reading, at the start of the gzip data; borrowed
    explicit GzipDevice(QIODevice* source);
    ~GzipDevice() override;

    bool isSequential() const override { return true; }
    /// Whether the data ended before it was complete; `errorString` says why.
    bool HasFailed() const { return failed; }
    /// Whether data begins as gzip does.
    static bool IsGzip(const QByteArray& start);

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    bool Refill();
    bool SkipPadding();
    void Fail(const QString& text);

    QIODevice* source;
    std::unique_ptr<z_stream_s> stream;
    QByteArray input;
    bool insideMember = false;
    bool failed = false;
};

} // namespace ZYN::Stdf
