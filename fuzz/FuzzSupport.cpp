#include "FuzzSupport.h"

#include "export/Environment.h"

#include <QtCore/QFile>
#include <QtCore/QLoggingCategory>

#include <cstdio>
#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

namespace {

// Qt warns where it is used in a wrong way and goes on all the same: that is a finding too.
void TakeMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    if (type != QtDebugMsg && type != QtInfoMsg)
        std::abort();
}

} // namespace

/// Called by libFuzzer before the first input.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // The same input makes the same output whenever it is run.
    static const ZYN::Environment::Override environment(QDateTime({2024, 3, 5}, {10, 17, 42}, Qt::UTC),
                                                        QStringLiteral("1.0"));
    // A run without a result for its program is a fair input.
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\nzyn.export.warning=false"));
    qInstallMessageHandler(TakeMessage);
    return 0;
}

namespace ZYN::Fuzz {

void Require(bool holds, const char* what, const QString& details)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n%s\n", what, qPrintable(details));
    std::abort();
}

MemoryFile::MemoryFile()
    : m_descriptor(memfd_create("input", MFD_CLOEXEC))
{
    Require(m_descriptor >= 0, "a file in memory can be made");
}

MemoryFile::~MemoryFile()
{
    close(m_descriptor);
}

QString MemoryFile::Name() const
{
    return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor);
}

void MemoryFile::Set(const QByteArray& bytes)
{
    QFile file(Name());
    Require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the file takes its bytes");
}

QByteArray MemoryFile::Get() const
{
    QFile file(Name());
    Require(file.open(QIODevice::ReadOnly), "the file can be opened");
    return file.readAll();
}

} // namespace ZYN::Fuzz
