#pragma once

#include "StdfFormat.h"
#include "StdfLotNames.h"

#include <QtCore/QByteArray>

#include <optional>

class QIODevice;

namespace ZYN {

/// Where the next part goes in a lot file.
struct StdfPlace {
    /// Start of the closing PCR, else the place where a new stream begins.
    qint64 position = 0;
    /// Whether there is a PCR to go on at; the counts are its.
    bool closingPcr = false;
    quint32 partCount = 0;
    quint32 goodCount = 0;
};

/// Finds its way in a lot file that exists already. Reads record headers and skips the bodies; a record
/// that the end of the file cuts off ends each search at its start, so that nothing is swallowed by it. Zero
/// bytes up to the end are no records but what a power loss leaves of a file that was growing: the file ends
/// before them.
/// Only little-endian files are understood: others have no header for this reader.
class StdfLotFile {
public:
    /// \param device open for reading and not sequential; borrowed. Its position changes.
    explicit StdfLotFile(QIODevice* device);

    /// Whether the file holds no part and no lot either: nothing, or only the counts that an export
    /// without any test program left.
    bool HoldsNothing();
    /// The names of the first MIR, null when there is none. Texts are decoded as UTF-8 although they
    /// are written as Latin-1: names beyond ASCII never match, and such a lot is never appended to.
    std::optional<StdfLotNames> ReadNames();
    /// The place to append at.
    ///
    /// The closing PCR is the last one, if it counts parts and nothing but an MRR follows. A file that
    /// ends as this library ends lot files is known by its last bytes alone; any other file is searched
    /// from its start. A PCR that counts no parts is passed over for a later one; if there is none and
    /// no result follows either, a new stream begins right after the first such PCR. In every other case
    /// it begins after the last complete record.
    StdfPlace FindPlace();

private:
    struct Header {
        qint64 position = 0;
        quint16 length = 0;
        StdfFormat::RecordKind kind;
        qint64 Body() const { return position + StdfFormat::headerSize; }
        qint64 End() const { return Body() + length; }
        /// \param bytes `headerSize` bytes, as they lie at the position
        static Header Of(qint64 position, const char* bytes);
    };

    /// The record at a position; null at the end of the file and for one that is cut off.
    std::optional<Header> HeaderAt(qint64 position);
    QByteArray BodyOf(const Header& header);
    std::optional<StdfPlace> PlaceFromEnd();
    std::optional<StdfPlace> PlaceAtPcr(const Header& header);
    /// Where the zero bytes begin that fill the file to its end.
    qint64 ZeroTail();

    QIODevice* m_device;
    qint64 m_size;
    QByteArray m_window;
    qint64 m_windowStart = 0;
    std::optional<qint64> m_zeroTail;
    qint64 m_zerosFrom;
};

} // namespace ZYN
