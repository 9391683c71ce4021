#pragma once

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

#include <memory>

namespace ZYN {
class TestPlan;
class TestPlanData;
class TestProgram;
class ValidationInterface;
} // namespace ZYN

/// Test programs with a plan, for the tests of the test plan.
namespace SamplePlan {

/// One component of each kind, validations of all three types, attributes of every type.
QSharedPointer<ZYN::TestProgram> Program();
/// A program whose group has categories nested this deep, an attribute in the innermost.
QSharedPointer<ZYN::TestProgram> DeepProgram(int depth);
/// A program with one measurement that has this validation; without one there is nothing to plan.
QSharedPointer<ZYN::TestProgram> ProgramWith(const QSharedPointer<ZYN::ValidationInterface>& validation);

/// A plan that was read, as text: types behind the values, so that what comes back as what is visible.
QString Describe(const ZYN::TestPlan& plan);

} // namespace SamplePlan
