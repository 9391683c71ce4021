#pragma once

#include <ZYNCommon/MeasurementLimits.h>
#include <ZYNCommon/ZYNCommonGlobal.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <memory>

namespace ZYN {

class Station;
class TestComponent;
class TestMeasurement;
class TestParameter;
class TestProgram;
class UUTTest;
class UnitUnderTest;

/// Records the test of one unit while it takes place, so that no result gets lost by a forgotten call: takes
/// the planned limits, files results for program, group and step above what was measured, keeps times, and
/// copies the verdicts to where the formats look for them. \code RunRecorder recorder(unit, program);
/// recorder.Measure(supply, 5.01);
/// recorder.Measure(current, 0.212);
/// const QSharedPointer<UUTTest> test = recorder.Finish();
/// \endcode
/// Without a program it is built on the way:
/// \code
/// RunRecorder recorder(unit, "Final test");
/// recorder.BeginGroup("Supply");
/// recorder.BeginStep("Rails");
/// recorder.Measure("5 V", 5.01, RealLimits{.lower = 4.85, .upper = 5.15, .unit = MeasurementUnit::Volt});
/// \endcode
///
/// What makes no sense (a measurement of another program, one that was measured already, one after the end)
/// is refused: the call answers false, `GetErrorText` and the logging category "zyn.recorder" say why, and
/// what was recorded before stays. One thread at a time.
class ZYNCOMMON_EXPORT RunRecorder {
public:
    /// \param unit may be null: the test of nobody knows which unit
    /// \param program that is executed. Components are given as those of this program; where results of an
    /// earlier run on it are still in memory the results belong to a copy of it, so that none takes the
    /// other's.
    RunRecorder(QSharedPointer<UnitUnderTest> unit, QSharedPointer<TestProgram> program);
    /// Builds the program on the way. Its groups, steps and measurements are numbered as they come, so that
    /// those of two units are the same if these have the same order: what is left out is told by `Skip`.
    RunRecorder(QSharedPointer<UnitUnderTest> unit, const QString& programName);
    /// What was not finished is dropped.
    ~RunRecorder();
    RunRecorder(const RunRecorder&) = delete;
    RunRecorder& operator=(const RunRecorder&) = delete;

    /// The test in the making, to set its lot, session and fixture; owned by the recorder until `Finish`.
    UUTTest* GetTest() const;
    /// Where the next run takes place; of a run that has begun it stays. Items take the panel's.
    void SetStation(QSharedPointer<Station> station);

    /// The group, or the step in it, that what follows belongs to: of that name in the program, else a new
    /// one where the program is built on the way.
    bool BeginGroup(const QString& name, EN_ZYN_GROUP kind = ZYN_GROUP_USER);
    bool BeginStep(const QString& name);

    /// A value in the base unit: a number, truth value or text, judged by the measurement's limits.
    bool Measure(const QSharedPointer<TestMeasurement>& measurement, const QVariant& value);
    /// The same by the name in the current step.
    /// \param limits in place of the planned ones; a new measurement is planned with them
    bool Measure(const QString& name, const QVariant& value, const MeasurementLimits& limits = {});
    /// What the program runs with.
    bool SetParameter(const QSharedPointer<TestParameter>& parameter, const QVariant& value);
    /// The same by the name in the current group.
    bool SetParameter(const QString& name, const QVariant& value);
    /// Files a group, step or measurement as not tested.
    bool Skip(const QSharedPointer<TestComponent>& component);
    /// Files the current step as not tested.
    bool SkipStep();

    /// The verdict of what was recorded last in this run; not tested where nothing was.
    EN_ZYN_RESULT GetLastResult() const;

    /// Of what was recorded last: measurement, parameter or what was skipped.
    bool SetComment(const QString& comment);
    bool SetAttribute(const QString& attribute);
    /// \param seconds in place of the time since what was recorded before
    bool SetDuration(double seconds);

    /// The run is stopped by the operator or tester, in the current step; groups of the kind clean-up may
    /// follow.
    bool Abort(const QString& reason);
    /// The same for a failure of the tester itself: nothing is known about the unit.
    bool Error(const QString& reason);

    /// Ends the run and begins another one on the same unit.
    bool Retest();
    /// A recorder for an item of the panel that the unit is; owned by this one, which finishes it.
    /// \param unit its place in the panel is set to the number of items, from 1, where it has none
    /// \return null after the end
    RunRecorder* AddItem(QSharedPointer<UnitUnderTest> unit);

    /// Ends the test and its items. Null when it was ended before, and for an item, which its panel ends.
    QSharedPointer<UUTTest> Finish();

    /// Why something was refused last; empty when nothing was.
    QString GetErrorText() const;

private:
    class Private;
    explicit RunRecorder(std::unique_ptr<Private> item);
    std::unique_ptr<Private> d;
};

} // namespace ZYN
