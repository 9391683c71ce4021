#include "terminal/Progress.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <cstdio>

namespace ZYN::Tool {

namespace {

constexpr qint64 redrawMilliseconds = 100;

void PutOnTerminal(const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
}

QString TimeText(double seconds)
{
    const qint64 whole = qRound64(seconds);
    if (whole < 60)
        return QStringLiteral("%1 s").arg(whole);
    return QStringLiteral("%1:%2 min").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

Progress::Progress(qsizetype total, bool shown)
    : m_total(total)
    , m_shown(shown && total > 1 && ErrorIsTerminal())
{
    m_timer.start();
}

Progress::~Progress()
{
    if (m_shown && m_drawnAt > 0)
        PutOnTerminal("\r\x1b[K");
}

void Progress::Step()
{
    const std::lock_guard lock(m_mutex);
    ++m_done;
    if (m_shown && m_timer.elapsed() - m_drawnAt >= redrawMilliseconds) {
        m_drawnAt = m_timer.elapsed();
        Draw();
    }
}

void Progress::Draw()
{
    const double rate = double(m_done) * 1000.0 / double(m_drawnAt);
    const QString figures =
        Texts::tr("%1 of %2  %3/s  %4 left")
            .arg(QString::number(m_done), QString::number(m_total),
                 QString::number(rate, 'f', rate < 10.0 ? 1 : 0), TimeText(double(m_total - m_done) / rate));
    const int width = qBound(0, TerminalColumns() - int(figures.size()) - 4, 40);
    const int filled = int(width * m_done / m_total);
    PutOnTerminal(QStringLiteral("\r%1%2  %3\x1b[K")
                      .arg(QString(filled, QChar(0x2588)), QString(width - filled, QChar(0x2591)), figures)
                      .toUtf8());
}

} // namespace ZYN::Tool
