#pragma once

#include "Model.h"

#include <QtCore/QVariant>

namespace ZYN::SampleModels {

using Limits = QSharedPointer<ValidationInterface>;

Limits RealLimits(int unitCode, double lower, double upper, int scaleFactor = 0,
                  const char* lowerOperator = "<=", const char* upperOperator = "<=");
Limits IntegerLimits(int unitCode, int lower, int upper);
Limits TextLimit(const QString& text);

/// Writes a test program down in the order of execution. Positions count from 1 in each parent, source
/// lines from 1 through the program.
class ProgramWriter {
public:
    ProgramWriter(long id, const QString& name);

    QSharedPointer<TestGroup> Group(long id, const QString& name, EN_ZYN_GROUP kind = ZYN_GROUP_USER);
    QSharedPointer<TestParameter> Parameter(long id, const QString& name, EN_ZYN_ADDRESS type);
    QSharedPointer<TestStep> Step(long id, const QString& name, const QString& description = QString());
    QSharedPointer<TestMeasurement> Measurement(long id, const QString& name, EN_ZYN_ADDRESS type,
                                                const Limits& limits = Limits());

    const QSharedPointer<TestProgram> program;

private:
    unsigned int m_line = 0;
    QSharedPointer<TestGroup> m_group;
    QSharedPointer<TestStep> m_step;
};

/// Writes the results of one run down. Times count on from 2024-03-05T10:15:00+01:00 by the durations of
/// measurements and parameters.
class RunWriter {
public:
    /// \param station may be null
    RunWriter(QSharedPointer<TestProgram> program, QSharedPointer<Station> station, long testIndex);
    /// Deletes the result set unless it was taken.
    ~RunWriter();
    RunWriter(const RunWriter&) = delete;
    RunWriter& operator=(const RunWriter&) = delete;

    /// The result of a program, group or step; its verdict is derived unless it is set.
    /// \param seconds duration
    TestResult* Verdict(QSharedPointer<TestComponent> component, double seconds);
    /// The result of a parameter or a measurement with a value; an invalid value was not measured.
    TestResult* Value(QSharedPointer<TestComponent> component, const QVariant& value,
                      double seconds = 0.0125);

    /// The result set, now also the newest results of its components; the caller owns it.
    TestResultSet* Take();

private:
    TestResultSet* m_set;
    double m_elapsed = 0.0;
};

} // namespace ZYN::SampleModels
