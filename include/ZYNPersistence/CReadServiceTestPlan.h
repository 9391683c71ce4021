#pragma once

#include <ZYNPersistence/ZYNPersistenceGlobal.h>

#include <QtCore/QString>

namespace ZYN {

class TestPlan;

/// Reads XML test plans of versions 2.0.0 and 3.0.0. Stateless; any number of threads.
class ZYNPERSISTENCE_EXPORT CReadServiceTestPlan {
public:
    CReadServiceTestPlan();
    CReadServiceTestPlan(const CReadServiceTestPlan& other);
    CReadServiceTestPlan(CReadServiceTestPlan&& other) noexcept;
    ~CReadServiceTestPlan();
    CReadServiceTestPlan& operator=(const CReadServiceTestPlan& other);
    CReadServiceTestPlan& operator=(CReadServiceTestPlan&& other) noexcept;

    /// \return the test plan, owned by the caller; null when the file could not be read
    TestPlan* ReadTestPlan(const QString& fileName);
    /// The same; a failure's text with line and column goes to `errorText` unless that is null.
    ///
    ///     QString errorText;
    ///     const std::unique_ptr<TestPlan> plan(service.ReadTestPlan("MCB-48.tpl", &errorText));
    TestPlan* ReadTestPlan(const QString& fileName, QString* errorText);
};

} // namespace ZYN
