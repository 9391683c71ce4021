#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QSet>

class QIODevice;

namespace ZYN {

/// Whether a file that begins so is an STDF file.
bool LooksLikeLot(const QByteArray& head);

/// Which parts stand in an STDF lot file, so that none is added twice. A part is known by a checksum
/// (BLAKE2b) of its bytes from its PIR to its PRR.
class LotContents {
public:
    /// Takes what stands in a file, and nothing else.
    /// \param file open for reading; its position changes
    void Read(QIODevice* file);
    void Add(const QByteArray& part);
    void Add(const LotContents& other) { m_parts.unite(other.m_parts); }
    bool Hold(const QByteArray& part) const;

private:
    QSet<QByteArray> m_parts;
};

} // namespace ZYN
