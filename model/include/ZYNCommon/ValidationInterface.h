#pragma once

#include <ZYNCommon/LimitOperator.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ValueDisplay.h>
#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVariant>

namespace ZYN {

/// Judges a measured value. Created by `TestComponentFactory`.
class ZYNCOMMON_EXPORT ValidationInterface {
public:
    /// What a value is compared with, and how it is shown. Borrowed from the validation; valid until its
    /// limits change. A null value is no limit.
    struct Limits {
        const ValueDisplay* display = nullptr;
        const QVariant* lower = nullptr;
        LimitOperator::Code lowerOperator = LimitOperator::None;
        const QVariant* upper = nullptr;
        LimitOperator::Code upperOperator = LimitOperator::None;
    };

    virtual ~ValidationInterface();

    /// How values and limits are shown; owned by the validation, never null in this library.
    virtual ValueDisplay* GetValueDisplay() const = 0;
    virtual bool HasLowerLimit() const = 0;
    virtual bool HasUpperLimit() const = 0;
    /// The limit's value, unscaled; invalid when there is no such limit.
    virtual QVariant GetLowerLimit() const = 0;
    virtual QVariant GetUpperLimit() const = 0;
    /// The limit as the value display shows it; empty when there is no such limit.
    virtual QString GetLowerLimitText() const = 0;
    virtual QString GetUpperLimitText() const = 0;
    virtual LimitOperator GetLowerOperator() const = 0;
    virtual LimitOperator GetUpperOperator() const = 0;
    virtual bool HasNominal() const = 0;
    virtual QVariant GetNominal() const = 0;
    virtual QString GetNominalText() const = 0;
    virtual MeasurementUnit GetMeasurementUnit() const = 0;
    /// Whether the verdict is turned round: what lies inside the limits fails.
    virtual bool IsResultInverted() const = 0;
    virtual void SetResultInverted(bool inverted) = 0;
    /// Names of the properties in a fixed order; what a test plan stores.
    virtual QList<QString> GetPropertyNames() const = 0;
    /// Value of a named property; invalid when the validation has none of that name or it is not set.
    virtual QVariant GetProperty(const QString& name) const = 0;
    /// Takes over a property, for example from a test plan; texts are converted.
    /// \return false for an unknown name or a value that does not fit
    virtual bool SetProperty(const QString& name, const QVariant& value) = 0;
    /// Whether a value passes. An invalid value and not-a-number never do, inverted or not.
    virtual bool Validate(const QVariant& value) const = 0;
    /// Display, limits and operators at once, for formats with a record for each of a million values.
    virtual Limits GetLimits() const = 0;
};

} // namespace ZYN
