#pragma once

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ZYNCommonGlobal.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

namespace ZYN {

class Station;
class TestProgram;

/// The results of one run of a test program. Owns its results.
class ZYNCOMMON_EXPORT TestResultSet : public QObject {
    Q_OBJECT
public:
    /// \param program may be null: such a set cannot be reported
    /// \param station where the run took place; may be null
    TestResultSet(QSharedPointer<TestProgram> program, QSharedPointer<Station> station);
    ~TestResultSet() override;

    QSharedPointer<TestProgram> GetTestProgram() const;
    QSharedPointer<Station> GetStation() const;
    /// The component's result; null when the set holds none (or for null). Constant time.
    TestResult* GetResult(const TestComponent* component) const
    {
        // Usually the component's newest result is the one; it lies at hand, and the table does not.
        TestResult* const newest = component ? component->GetResult() : nullptr;
        return newest && newest->IsCurrentIn(this, component) ? newest
                                                              : m_resultForComponent.value(component);
    }
    /// Takes ownership; null and a result that belongs to a set already are ignored. Of several results of
    /// one component the last one counts, all are kept until the set is destroyed.
    void AddResult(TestResult* result);
    /// All results in the order in which they were added.
    const QList<TestResult*>& GetResults() const;

    /// Outcome of a component in this run: its result's code, without a result the worst of its
    /// children's outcomes. Not tested for null and for what has neither.
    EN_ZYN_RESULT GetVerdict(const TestComponent* component) const;

    /// Number of the run on this unit, from 1; 0 when unknown.
    long GetTestIndex() const;
    void SetTestIndex(long index);
    /// Id of the station, 0 without one.
    long GetStationID() const;
    /// Description of the station, empty without one.
    QString GetStationDescription() const;

    /// Number of steps whose outcome is a failure, over all groups.
    int GetFaildStepCount() const;
    /// Ident texts of the groups whose outcome is a failure, in program order.
    QList<QString> GetFailedTestGroups() const;
    /// Number of a component's direct children whose outcome is a failure.
    int GetFailedCount(const TestComponent* component) const;

private:
    friend class UUTTest;

    QSharedPointer<TestProgram> m_program;
    QSharedPointer<Station> m_station;
    QList<TestResult*> m_results;
    QHash<const TestComponent*, TestResult*> m_resultForComponent;
    long m_testIndex = 0;
    bool m_isOwned = false; ///< by a test
};

} // namespace ZYN
