#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

#include <mutex>

namespace ZYN::Tool {

/// A progress bar with rate and time left, on standard error and only where that is a terminal. Any thread.
class Progress {
public:
    /// \param shown false keeps it silent
    Progress(qsizetype total, bool shown);
    /// Takes the bar away.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Step();

private:
    void Draw();

    std::mutex m_mutex;
    QElapsedTimer m_timer;
    qint64 m_drawnAt = 0; // milliseconds
    qsizetype m_done = 0;
    const qsizetype m_total;
    const bool m_shown;
};

} // namespace ZYN::Tool
