#pragma once

#include <QtCore/QByteArray>

namespace ZYN::Tool {

/// Remembers the path of a half-written file so that it is removed when the tool is interrupted or told to
/// end (SIGINT, SIGTERM, SIGHUP). Make it before the file, in the thread that writes it: that thread is
/// stopped (with SIGUSR2) before files are removed. Any thread.
class TemporaryFile {
public:
    explicit TemporaryFile(const QByteArray& path);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

private:
    int m_slot;
};

} // namespace ZYN::Tool
