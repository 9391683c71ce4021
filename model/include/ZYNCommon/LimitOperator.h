#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>

namespace ZYN {

/// Comparison operator of a limit. Reads limit-operator-value on the lower side and
/// value-operator-limit on the upper side: "<=" on both sides is the closed interval.
class ZYNCOMMON_EXPORT LimitOperator {
public:
    enum Code : int {
        None = 0,
        Equal = 1,
        NotEqual = 2,
        Less = 3,
        LessEqual = 4,
        Greater = 5,
        GreaterEqual = 6
    };

    LimitOperator();
    LimitOperator(Code code); // a code is an operator wherever one is wanted
    LimitOperator(const LimitOperator&) = default;
    LimitOperator& operator=(const LimitOperator&) = default;

    Code GetCode() const { return m_code; }
    /// "", "==", "!=", "<", "<=", ">", ">=".
    QString ToString() const;
    /// The operator of a text, surrounding blanks ignored; None for an unknown text.
    static LimitOperator FromString(const QString& text);
    /// The same of an ASCII text; a null pointer is none.
    static LimitOperator FromString(const char* text);

private:
    Code m_code;
};

} // namespace ZYN
