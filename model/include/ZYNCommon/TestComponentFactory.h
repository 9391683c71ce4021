#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace ZYN {

class ValidationInterface;

/// Creates validations. The caller owns what it gets.
///
/// Operators are texts ("<=", ">" ...), lower side first; an empty, null or unknown text means that
/// there is no such limit. The `long` arguments are bin ids, -1 where there is none.
class ZYNCOMMON_EXPORT TestComponentFactory {
public:
    /// For integers. For hexadecimal and binary units the limits are 32-bit patterns.
    static ValidationInterface* CreateValidationInt(int unitCode, const char* lowerOperator,
                                                    const char* upperOperator, int lower, int upper,
                                                    long binIdLower, long binIdUpper, long binIdPass,
                                                    long softBinIdLower, long softBinIdUpper,
                                                    long softBinIdPass);
    /// For real numbers.
    /// \param scaleFactor power of ten of the value display; invalid means 0
    /// \param nominal the nominal value; not-a-number means none
    static ValidationInterface*
    CreateValidationReal(int unitCode, const char* lowerOperator, const char* upperOperator, double lower,
                         double upper, long binIdLower, long binIdUpper, long binIdPass, long softBinIdLower,
                         long softBinIdUpper, long softBinIdPass, QVariant scaleFactor, double nominal);
    /// For texts: the value is compared with `text` on the lower side (text-operator-value).
    static ValidationInterface* CreateValidationString(int unitCode, const char* lowerOperator,
                                                       const QString& text, long binIdFail, long binIdPass,
                                                       long softBinIdFail, long softBinIdPass);
};

} // namespace ZYN
