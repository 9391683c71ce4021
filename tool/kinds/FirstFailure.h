#pragma once

#include <QtCore/QString>

namespace ZYN {
class TestComponent;
class TestResultSet;
} // namespace ZYN

namespace ZYN::Tool {

struct FirstFailure {
    const TestComponent* component = nullptr; ///< null when nothing failed
    QString path; ///< names from the group down, joined by " / "; the program's name when only it failed
};

/// What failed first in a run, in the order of the program: in the first failed step the first failed
/// measurement, or the step itself. Where no step failed the failed component that lies deepest.
FirstFailure FirstFailureOf(const TestResultSet* run);

} // namespace ZYN::Tool
