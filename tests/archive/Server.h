#pragma once

#include "support/Program.h"

#include <QtCore/QString>

/// The PostgreSQL server of the test run (see postgres.py).
namespace ZYN::Server {

/// Address of a new, empty database; empty where there is no server: run the test by ctest, which starts one.
inline QString NewDatabase()
{
    const Program::Outcome outcome =
        Program::Run("/usr/bin/python3", {ZYN_SOURCE_DIR "/tests/archive/postgres.py", "database",
                                          qEnvironmentVariable("ZYN_TEST_SERVER")});
    return outcome.code == 0 ? QString::fromUtf8(outcome.output).trimmed() : QString();
}

} // namespace ZYN::Server
