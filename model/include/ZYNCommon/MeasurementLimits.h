#pragma once

#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ZYNCommonGlobal.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QSharedPointer>
#include <QtCore/QString>

#include <optional>

namespace ZYN {

class ValidationInterface;

/// Bins that a value leads to; -1 for none.
struct LimitBins {
    long below = -1; ///< lower limit missed; for texts: another text
    long above = -1; ///< upper limit missed
    long pass = -1;
};

/// Limits of real numbers, in the base unit: `RealLimits{.lower = 4.85, .upper = 5.15, .unit =
/// MeasurementUnit::Volt}`.
struct RealLimits {
    std::optional<double> lower = {}; ///< none: no lower limit
    std::optional<double> upper = {};
    int unit = MeasurementUnit::None;
    int prefix = 0; ///< power of ten of the prefix that people see it with: -3 shows 0.012 A as 12 mA
    std::optional<double> nominal = {};
    const char* lowerOperator = "<="; ///< lower limit, operator, value
    const char* upperOperator = "<="; ///< value, operator, upper limit
    LimitBins hardBins = {};
    LimitBins softBins = {};
};

/// Limits of integers.
struct IntegerLimits {
    std::optional<int> lower = {};
    std::optional<int> upper = {};
    int unit = MeasurementUnit::None;
    const char* lowerOperator = "<=";
    const char* upperOperator = "<=";
    LimitBins hardBins = {};
    LimitBins softBins = {};
};

/// The one good text.
struct TextLimit {
    QString text;
    LimitBins hardBins = {};
    LimitBins softBins = {};
};

/// The one good truth value. Values are stored as 1 and 0.
struct BooleanLimit {
    bool value = true;
    LimitBins hardBins = {};
    LimitBins softBins = {};
};

/// The one good pattern of 32 bits, shown as hexadecimal digits.
struct HexadecimalLimit {
    unsigned int value = 0;
    LimitBins hardBins = {};
    LimitBins softBins = {};
};

/// What a measurement is judged by, of one of the kinds above; none by default. What `TestComponentFactory`
/// creates from twelve arguments, in words.
/// \code
/// measurement->GetValidationCtrl()->SetValidation(
///     MeasurementLimits(RealLimits{.lower = 4.85, .upper = 5.15, .unit =
///     MeasurementUnit::Volt}).GetValidation());
/// \endcode
class ZYNCOMMON_EXPORT MeasurementLimits {
public:
    MeasurementLimits();
    MeasurementLimits(const RealLimits& limits);
    MeasurementLimits(const IntegerLimits& limits);
    MeasurementLimits(const TextLimit& limit);
    MeasurementLimits(const BooleanLimit& limit);
    MeasurementLimits(const HexadecimalLimit& limit);
    /// Limits that there are already; null for none.
    /// \param type of the values
    MeasurementLimits(QSharedPointer<ValidationInterface> validation, EN_ZYN_ADDRESS type);

    /// Null for none. May be shared by any number of measurements and results.
    const QSharedPointer<ValidationInterface>& GetValidation() const { return m_validation; }
    /// Type of the values that they judge; `ZYN_ADDRESS_NONE` without limits.
    EN_ZYN_ADDRESS GetType() const { return m_type; }

private:
    QSharedPointer<ValidationInterface> m_validation;
    EN_ZYN_ADDRESS m_type = ZYN_ADDRESS_NONE;
};

} // namespace ZYN
