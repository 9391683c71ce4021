#include "watch/EndSignals.h"

#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

namespace ZYN::Tool {

EndSignals::EndSignals()
{
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigaddset(&ending, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    m_descriptor = signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK);
}

EndSignals::~EndSignals()
{
    close(m_descriptor);
}

bool EndSignals::HasCome()
{
    signalfd_siginfo information;
    m_come = m_come || read(m_descriptor, &information, sizeof information) > 0;
    return m_come;
}

} // namespace ZYN::Tool
