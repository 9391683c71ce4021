#include "archive/FailedComponents.h"

namespace ZYN {

namespace {

class Failures {
public:
    explicit Failures(const Run& run)
        : m_components(run.layout->components)
        , m_codes(run.codes)
    {
    }

    /// -1 where nothing failed
    int First() const
    {
        const int step = FirstOf(ComponentKind::Step, -1);
        if (step < 0)
            return Deepest();
        const int measurement = FirstOf(ComponentKind::Measurement, step);
        return measurement < 0 ? step : measurement;
    }

    bool IsFailed(int position) const
    {
        const std::int16_t code = m_codes[size_t(position)];
        return code < 0 && code != Run::NoCode;
    }

    int Count() const { return int(m_components.size()); }
    bool IsMeasurement(int position) const
    {
        return m_components[size_t(position)].kind == ComponentKind::Measurement;
    }

private:
    // The first failed one of a kind, below a component or, with -1, of all.
    int FirstOf(ComponentKind kind, int below) const
    {
        for (int i = below + 1; i < Count(); ++i)
            if (m_components[size_t(i)].kind == kind && IsFailed(i) && (below < 0 || IsBelow(i, below)))
                return i;
        return -1;
    }

    bool IsBelow(int position, int ancestor) const
    {
        for (int i = m_components[size_t(position)].parent; i >= ancestor; i = m_components[size_t(i)].parent)
            if (i == ancestor)
                return true;
        return false;
    }

    int Deepest() const
    {
        int deepest = -1;
        int depthOfDeepest = 0;
        for (int i = 0; i < Count(); ++i) {
            if (!IsFailed(i))
                continue;
            int depth = 1;
            for (int at = m_components[size_t(i)].parent; at >= 0; at = m_components[size_t(at)].parent)
                ++depth;
            if (depth > depthOfDeepest) {
                deepest = i;
                depthOfDeepest = depth;
            }
        }
        return deepest;
    }

    const std::vector<RunComponent>& m_components;
    const std::vector<std::int16_t>& m_codes;
};

} // namespace

std::vector<FailedComponent> FailedComponents(const Run& run)
{
    std::vector<FailedComponent> failed;
    const Failures failures(run);
    const int first = failures.First();
    if (first < 0)
        return failed;
    for (int i = 0; i < failures.Count(); ++i)
        if (i == first || (failures.IsMeasurement(i) && failures.IsFailed(i)))
            failed.push_back({std::uint32_t(i), i == first});
    return failed;
}

} // namespace ZYN
