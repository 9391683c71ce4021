#pragma once

#include <QtCore/QtGlobal>

namespace ZYN::Tool {

/// Signals that end the tool (SIGTERM, SIGINT), as something to wait for instead: what is in hand is finished
/// first. Made before any thread, so that all of them leave the signals to it.
class EndSignals {
public:
    EndSignals();
    ~EndSignals();
    Q_DISABLE_COPY_MOVE(EndSignals)

    /// Readable once one has come.
    int Descriptor() const { return m_descriptor; }
    bool HasCome();

private:
    int m_descriptor;
    bool m_come = false;
};

} // namespace ZYN::Tool
