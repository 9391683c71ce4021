#pragma once

#include <QtCore/QHash>
#include <QtCore/QSharedPointer>

namespace ZYN {

class TestComponent;
class TestProgram;

/// A program like another, without its results: a run that shares components with an earlier one would take
/// over their newest verdicts.
struct ProgramCopy {
    QSharedPointer<TestProgram> program;
    QHash<const TestComponent*, QSharedPointer<TestComponent>> copyOf; ///< of each group and what is in it
};

ProgramCopy CopyProgram(const TestProgram* program);

} // namespace ZYN
