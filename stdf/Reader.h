#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <memory>
#include <optional>

class QIODevice;

namespace ZYN::Stdf {

class GzipDevice;

/// A record as it stands in the file. The offset is that of its header, from 0; in a compressed file it
/// counts the decompressed bytes.
struct RawRecord {
    qint64 offset = 0;
    quint8 type = 0;
    quint8 subType = 0;
    QByteArray body;
};

/// Where and why reading ended before the end of the file.
struct Fault {
    qint64 offset = 0;
    QString text;
};

/// Splits an STDF file into records, one at a time: memory does not grow with the file. Gzip is
/// recognised by its first bytes, the byte order by the FAR; a file without one is read as little-endian.
/// The device is read ahead of the records.
class Reader {
public:
    /// \param device open for reading; borrowed
    explicit Reader(QIODevice* device);
    ~Reader();

    /// Reads the next record. False at the end of the file and where it is damaged: see `GetFault`.
    bool Next(RawRecord& record);
    bool IsBigEndian() const { return bigEndian; }
    bool IsCompressed() const { return gzip != nullptr; }
    /// Offset behind the last record read.
    qint64 Offset() const { return offset; }
    const std::optional<Fault>& GetFault() const { return fault; }

private:
    QByteArrayView Look(qsizetype count);
    bool Fail(const QString& text);

    std::unique_ptr<GzipDevice> gzip;
    QIODevice* source;
    QByteArray buffer; ///< of what was read from the source
    qsizetype begin = 0, end = 0;
    qint64 offset = 0;
    bool bigEndian = false;
    bool afterZeros = false; ///< the last header was of zero bytes
    std::optional<Fault> fault;
};

} // namespace ZYN::Stdf
