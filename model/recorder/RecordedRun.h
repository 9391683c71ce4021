#pragma once

#include "ProgramCopy.h"

#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

#include <memory>

namespace ZYN {

class MeasurementLimits;
class Station;
class TestGroup;
class TestMeasurement;
class TestParameter;
class TestResult;
class TestResultSet;
class TestStep;

/// One run while it is recorded: its results in the order in which they come, those of program, group and
/// step in front of what is in them.
class RecordedRun {
public:
    /// \param mayGrow the program is built on the way
    RecordedRun(QSharedPointer<TestProgram> program, QSharedPointer<Station> station, long index,
                bool mayGrow);
    ~RecordedRun();

    const QSharedPointer<TestProgram>& Program() const { return m_program; }
    const QSharedPointer<TestGroup>& Group() const { return m_group; }
    const QSharedPointer<TestStep>& Step() const { return m_step; }

    /// The run's own component for one of the planned program, or its own already; null for any other.
    QSharedPointer<TestComponent> Own(const QSharedPointer<TestComponent>& planned) const;

    /// By name in the program, the current group or step; a new one where the program may grow, else null.
    QSharedPointer<TestGroup> FindGroup(const QString& name, EN_ZYN_GROUP kind);
    QSharedPointer<TestStep> FindStep(const QString& name);
    QSharedPointer<TestMeasurement> FindMeasurement(const QString& name, EN_ZYN_ADDRESS type,
                                                    const MeasurementLimits& limits);
    QSharedPointer<TestParameter> FindParameter(const QString& name, EN_ZYN_ADDRESS type);

    /// What follows is in this group, and in no step of it yet.
    bool Begin(const TestGroup* group);
    /// What follows is in this step; false for one of another program.
    bool Enter(const TestStep* step);
    /// Files a result for a component, in the group and step that it is in. Null where these are not of this
    /// program.
    TestResult* File(const QSharedPointer<TestComponent>& component);
    bool HasResult(const TestComponent* component) const;

    /// What was filed last; null before.
    TestResult* Last() const { return m_last; }
    /// Of what was filed last, in place of the time that it took by the clock.
    void SetDuration(double seconds);

    void Stop(EN_ZYN_RESULT code, const QString& reason);
    bool IsStopped() const { return m_stopCode < 0; }
    /// Of a stopped run, or of the first failed measurement; empty where all is well.
    QString Description() const { return m_description; }
    void Describe(const QString& description);

    /// How long all that was filed took.
    double Seconds() const;
    EN_ZYN_RESULT Result() const;
    /// Ends the run: verdicts reach the components. The results are the caller's from now on.
    std::unique_ptr<TestResultSet> Take();

private:
    bool Enter(const TestGroup* group);
    bool EnterParent(const TestComponent* component);
    void LeaveStep();
    TestResult* Need(const QSharedPointer<TestComponent>& component);
    void Add(double seconds);

    QSharedPointer<TestProgram> m_program;
    QHash<const TestComponent*, QSharedPointer<TestComponent>> m_copyOf; ///< empty: the planned is the own
    std::unique_ptr<TestResultSet> m_results;
    QSharedPointer<TestGroup> m_group;
    QSharedPointer<TestStep> m_step;
    TestResult* m_last = nullptr;
    TestResult* m_programResult = nullptr;
    TestResult* m_groupResult = nullptr;
    TestResult* m_stepResult = nullptr;
    int m_nextGroup = 0; ///< where the next one is looked for first
    int m_nextStep = 0;
    int m_nextMeasurement = 0;
    bool m_mayGrow;
    EN_ZYN_RESULT m_stopCode = ZYN_RESULT_NOT_TESTED;
    QString m_description;
    QDateTime m_start;
    QElapsedTimer m_clock;
    qint64 m_moment = 0; ///< ns since the start at which the last result was filed
};

} // namespace ZYN
