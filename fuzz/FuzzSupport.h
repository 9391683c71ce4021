#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// What the fuzzers share.
namespace ZYN::Fuzz {

/// Ends the run with a finding unless something holds.
/// \param what printed with the finding
void Require(bool holds, const char* what, const QString& details = QString());

/// The bytes that the fuzzer made, without a copy.
inline QByteArray Input(const unsigned char* data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
}

/// A file that has a name and no place on a disk, for readers that take a name. One after the other may
/// open it, also for writing.
class MemoryFile {
public:
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    QString Name() const;
    void Set(const QByteArray& bytes);
    QByteArray Get() const;

private:
    int m_descriptor;
};

} // namespace ZYN::Fuzz
