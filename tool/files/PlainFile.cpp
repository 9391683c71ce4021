#include "files/PlainFile.h"

#include "terminal/Texts.h"

#include "stdf/GzipDevice.h"

#include <sys/mman.h>

namespace ZYN::Tool {

PlainFile::PlainFile(const QString& path)
    : m_path(path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && Stdf::GzipDevice::IsGzip(file.peek(Stdf::GzipDevice::MarkSize)))
        Decompress(file);
}

void PlainFile::Decompress(QFile& file)
{
    const int descriptor = memfd_create("zyn decompressed", MFD_CLOEXEC);
    if (descriptor < 0 || !m_memory.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle)) {
        m_problem = Texts::tr("there is not enough memory to decompress it");
        return;
    }
    m_path = QStringLiteral("/proc/self/fd/%1").arg(descriptor);
    Stdf::GzipDevice gzip(&file);
    const qint64 most = qMax(MaximumSize, MaximumRatio * file.size());
    bool isWritten = true;
    for (QByteArray chunk = gzip.read(1 << 20); isWritten && !chunk.isEmpty(); chunk = gzip.read(1 << 20))
        isWritten = m_memory.pos() + chunk.size() <= most && m_memory.write(chunk) == chunk.size();
    if (gzip.HasFailed())
        m_problem = gzip.errorString();
    if (m_memory.flush() && isWritten)
        return;
    m_problem = Texts::tr("it becomes more than %1 times larger when it is decompressed").arg(MaximumRatio);
    m_memory.resize(0);
}

} // namespace ZYN::Tool
