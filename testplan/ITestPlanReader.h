#pragma once

#include <QtCore/QString>

namespace ZYN {

class TestPlan;

/// Reads one test plan file: open, read, take the plan.
class ITestPlanReader {
public:
    virtual ~ITestPlanReader() = default;

    virtual bool IsOpened() = 0;
    /// \return false when no file is open or it is no test plan that can be read
    virtual bool Read() = 0;
    virtual bool Open(const QString& fileName) = 0;
    /// What is wrong with the content, a tab, line and column (from 1 and 0).
    virtual QString GetErrorText() = 0;
    /// Hands the plan over; null when none was built.
    virtual TestPlan* TakeTestPlan() = 0;
    /// Why the file could not be opened; empty when it could.
    virtual QString GetOpenErrorText() = 0;
};

} // namespace ZYN
