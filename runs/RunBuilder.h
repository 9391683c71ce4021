#pragma once

#include "runs/Run.h"
#include "runs/RunsGlobal.h"

#include <limits>
#include <memory>
#include <optional>
#include <string_view>

namespace ZYN {

class RunBuilder_Private;

/// What one value is judged by. The texts are borrowed for the call.
struct RunItemLimits {
    static constexpr double None = std::numeric_limits<double>::quiet_NaN();
    double lower = None;
    double upper = None;
    double nominal = None;
    std::string_view lowerOperator; ///< empty where there is no limit
    std::string_view upperOperator;
    std::optional<std::string_view> lowerText; ///< a limit that is a text, or that a double does not hold
    std::optional<std::string_view> upperText;
    bool inverted = false;
};

/// The result of one component. The texts are borrowed for the call.
struct RunItem {
    ComponentKind kind = ComponentKind::Measurement;
    std::string_view ident;
    std::string_view name;
    int dataType = 0;
    std::string_view unit; ///< of the number: without prefix
    int unitCode = 0;
    int factor = 0;
    int code = 0;
    double seconds = std::numeric_limits<double>::quiet_NaN();
    double number = std::numeric_limits<double>::quiet_NaN();
    std::string_view text; ///< the value, if it is no finite number or one that a double does not hold
    std::string_view comment;
    std::string_view attribute;
    const RunItemLimits* limits = nullptr; ///< null where there are none
};

/// Makes the values of runs from their components in walk order. Runs of a version of a program share their
/// layouts and limits: a run that lacks components (it was stopped, a step was skipped) uses the layout of
/// one that has them.
///
/// A component that is known costs no allocation. What is kept of former runs is bounded, however many there
/// are and however much they differ.
class ZYNRUNS_EXPORT RunBuilder {
public:
    RunBuilder();
    ~RunBuilder();
    RunBuilder(const RunBuilder&) = delete;
    RunBuilder& operator=(const RunBuilder&) = delete;

    /// Begins a run; one that was begun before and not finished is dropped.
    void Begin(std::string_view program, std::string_view ident, std::string_view version);
    /// For a version that comes late.
    void SetVersion(std::string_view version);
    /// The next component. A step belongs to the last group, a measurement to the last step, a parameter to
    /// the last group; where there is none, to the next one above, or to none.
    void Add(const RunItem& item);
    /// Ends the run.
    /// \param run receives layout, limits, values, codes, seconds and texts
    void Finish(Run* run);

private:
    std::unique_ptr<RunBuilder_Private> d;
};

} // namespace ZYN
