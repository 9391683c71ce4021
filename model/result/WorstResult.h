#pragma once

#include <ZYNCommon/ZYNTypes.h>

#include <algorithm>

namespace ZYN {

/// The verdict over several results: the most severe failure wins, then a pass, then work done without a
/// verdict; nothing at all was not tested.
class WorstResult {
public:
    void Add(EN_ZYN_RESULT result)
    {
        if (result < 0)
            m_failure = std::min(m_failure, result);
        else if (result == ZYN_RESULT_PASSED)
            m_passed = true;
        else if (result != ZYN_RESULT_NOT_TESTED)
            m_done = true;
    }

    EN_ZYN_RESULT Get() const
    {
        if (m_failure < 0)
            return m_failure;
        if (m_passed)
            return ZYN_RESULT_PASSED;
        return m_done ? ZYN_RESULT_DONE : ZYN_RESULT_NOT_TESTED;
    }

private:
    EN_ZYN_RESULT m_failure = ZYN_RESULT_NOT_TESTED;
    bool m_passed = false;
    bool m_done = false;
};

} // namespace ZYN
