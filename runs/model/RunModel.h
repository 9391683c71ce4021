#pragma once

#include "runs/Run.h"

#include <QtCore/QSharedPointer>

#include <memory>

namespace ZYN {

class UUTTest;

/// Makes tests of units out of runs. What runs of one layout have in common is made once, and tests that are
/// judged alike share their limits, which are not to be changed; use one object for the runs of a lot, on one
/// thread.
class RunModels {
public:
    RunModels();
    ~RunModels();
    RunModels(const RunModels&) = delete;
    RunModels& operator=(const RunModels&) = delete;

    /// The test of a unit that a run tells of, with one result set. It holds all that a run says and the
    /// model has a place for, and all of it is meant for reports. Limits of integers have up to 64 bits.
    QSharedPointer<UUTTest> Make(const Run& run);

private:
    struct Common;
    std::unique_ptr<Common> m_common;
};

/// The test of a single run.
QSharedPointer<UUTTest> ModelOfRun(const Run& run);

} // namespace ZYN
