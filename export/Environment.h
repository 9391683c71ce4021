#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

/// The one place where a report takes what changes from run to run: the clock and the version of the
/// test engine. Tests set both.
namespace ZYN::Environment {

/// The current local time.
QDateTime Now();
/// Version of the test engine that reports name.
QString EngineVersion();

/// Sets clock and version until its end; for tests, one at a time, not while exports run elsewhere.
class Override {
public:
    Override(const QDateTime& now, const QString& engineVersion);
    ~Override();
    Override(const Override&) = delete;
    Override& operator=(const Override&) = delete;
};

} // namespace ZYN::Environment
