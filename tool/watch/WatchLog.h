#pragma once

#include "loading/RunLoader.h"
#include "terminal/Manners.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace ZYN::Tool {

/// Tells what a watcher does, a line each: for people, or for the journal of systemd as JSON behind the
/// line's priority (sd-daemon(3)), which the journal takes away again.
class WatchLog {
public:
    explicit WatchLog(const Manners& manners);

    void Archived(const LoadedInput& loaded) const;
    void Failed(const QString& input, const QString& reason) const;
    void Waits(const QString& reason) const;
    void GoesOn() const;

private:
    static void TellJournal(int priority, const QJsonObject& object);

    const Manners& m_manners;
    bool m_isForJournal;
};

} // namespace ZYN::Tool
