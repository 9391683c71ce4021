#pragma once

#include "Property.h"

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <cmath>
#include <utility>

/// \file
/// Codes, values and limits. Everything that the contract leaves open is other than in the project's own
/// model on purpose: names of enumerators, codes, unnamed accessors.

namespace ZYN {

enum EN_ZYN_RESULT : int { Bad = -2, Untested = 0, Good = 2 };
enum EN_ZYN_GROUP : int { MainTests = 0, Preparation = 4 };
enum EN_ZYN_ADDRESS : int { Nothing = 0, Whole = 11, Decimal = 12, Words = 13 };

/// This model shows values as they are.
class ValueDisplay {
public:
    enum ScaleFactor : int { Plain = 0 };
    explicit ValueDisplay(ScaleFactor = Plain) {}
    QString ToString(const QVariant& value) const { return value.toString(); }
    static QString StaticToString(const QVariant& value) { return value.toString(); }
    ScaleFactor GetScaleFactor() const { return Plain; }
    QString GetScaleString() const { return {}; }
    static QString ScaleFactorToString(ScaleFactor) { return {}; }
};

class LimitOperator {
public:
    enum Code : int { NoLimit, NotBelow, NotAbove };
    QString ToString() const { return QStringList{QString(), ">=", "<="}.at(code); }
    Code code = NoLimit;
};

class MeasurementUnit {
public:
    QString ToString() const { return number == 1 ? "V" : QString(); }
    int number = 0;
};

class ValueComperator {
public:
    static bool Verify(double value, double limit, LimitOperator::Code code)
    {
        return code == LimitOperator::NoLimit ||
               (code == LimitOperator::NotBelow ? value >= limit : value <= limit);
    }
};

/// Limits of any kind of value.
class ValidationInterface {
public:
    ValidationInterface(int unit, const char* hasLower, const char* hasUpper, QVariant lower, QVariant upper)
        : LowerLimit(hasLower && *hasLower ? std::move(lower) : QVariant())
        , UpperLimit(hasUpper && *hasUpper ? std::move(upper) : QVariant())
        , measurementUnit{unit}
    {
    }
    virtual ~ValidationInterface() = default;
    /// None: the formats accept a validation without a display.
    ValueDisplay* GetValueDisplay() const { return nullptr; }
    bool HasLowerLimit() const { return LowerLimit.isValid(); }
    bool HasUpperLimit() const { return UpperLimit.isValid(); }
    QString GetLowerLimitText() const { return LowerLimit.toString(); }
    QString GetUpperLimitText() const { return UpperLimit.toString(); }
    LimitOperator GetLowerOperator() const
    {
        return {HasLowerLimit() ? LimitOperator::NotBelow : LimitOperator::NoLimit};
    }
    LimitOperator GetUpperOperator() const
    {
        return {HasUpperLimit() ? LimitOperator::NotAbove : LimitOperator::NoLimit};
    }
    ANSWER(QVariant, LowerLimit)
    ANSWER(QVariant, UpperLimit)
    MeasurementUnit measurementUnit;
    bool inverted = false;
};

class TestComponentFactory {
public:
    template <class... Rest>
    static ValidationInterface* CreateValidationInt(int unit, const char* lowerOperator,
                                                    const char* upperOperator, int lower, int upper, Rest...)
    {
        return new ValidationInterface(unit, lowerOperator, upperOperator, lower, upper);
    }
    template <class... Rest>
    static ValidationInterface* CreateValidationReal(int unit, const char* lowerOperator,
                                                     const char* upperOperator, double lower, double upper,
                                                     Rest...)
    {
        return new ValidationInterface(unit, lowerOperator, upperOperator, lower, upper);
    }
    template <class... Rest>
    static ValidationInterface* CreateValidationString(int unit, const char* lowerOperator,
                                                       const QString& text, Rest...)
    {
        return new ValidationInterface(unit, lowerOperator, nullptr, text, {});
    }
};

} // namespace ZYN
