#pragma once

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

class ValueDisplay {
public:
    enum ScaleFactor : int { Plain = 0, Thousandth = -3 };
    explicit ValueDisplay(ScaleFactor factor = Plain)
        : factor(factor)
    {
    }
    QString ToString(const QVariant& value) const
    {
        return factor == Plain ? StaticToString(value)
                               : StaticToString(value.toDouble() * std::pow(10.0, -int(factor)));
    }
    static QString StaticToString(const QVariant& value) { return value.toString(); }
    ScaleFactor GetScaleFactor() const { return factor; }
    QString GetScaleString() const { return ScaleFactorToString(factor); }
    static QString ScaleFactorToString(ScaleFactor factor)
    {
        return factor == Thousandth ? QStringLiteral("m") : QString();
    }

private:
    ScaleFactor factor;
};

class LimitOperator {
public:
    enum Code : int { NoLimit, NotBelow, NotAbove };
    LimitOperator() = default;
    explicit LimitOperator(Code code)
        : code(code)
    {
    }
    QString ToString() const
    {
        return code == NoLimit ? QString() : code == NotBelow ? QStringLiteral(">=") : QStringLiteral("<=");
    }
    Code code = NoLimit;
};

class MeasurementUnit {
public:
    QString ToString() const { return text; }
    QString text;
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

class ValidationInterface {
public:
    virtual ~ValidationInterface() = default;
    virtual ValueDisplay* GetValueDisplay() const = 0;
    virtual bool HasLowerLimit() const = 0;
    virtual bool HasUpperLimit() const = 0;
    virtual QVariant GetLowerLimit() const = 0;
    virtual QVariant GetUpperLimit() const = 0;
    virtual QString GetLowerLimitText() const = 0;
    virtual QString GetUpperLimitText() const = 0;
    virtual LimitOperator GetLowerOperator() const = 0;
    virtual LimitOperator GetUpperOperator() const = 0;

    bool inverted = false;
};

/// Limits of any kind of value.
class Limits : public ValidationInterface {
public:
    Limits(int unit, const char* lowerOperator, const char* upperOperator, QVariant lower, QVariant upper)
        : lower(std::move(lower))
        , upper(std::move(upper))
        , hasLower(lowerOperator && *lowerOperator)
        , hasUpper(upperOperator && *upperOperator)
    {
        measurementUnit.number = unit;
        measurementUnit.text = unit == 1 ? QStringLiteral("V") : QString();
    }
    /// None: the formats accept a validation without a display.
    ValueDisplay* GetValueDisplay() const override { return nullptr; }
    bool HasLowerLimit() const override { return hasLower; }
    bool HasUpperLimit() const override { return hasUpper; }
    QVariant GetLowerLimit() const override { return lower; }
    QVariant GetUpperLimit() const override { return upper; }
    QString GetLowerLimitText() const override { return hasLower ? lower.toString() : QString(); }
    QString GetUpperLimitText() const override { return hasUpper ? upper.toString() : QString(); }
    LimitOperator GetLowerOperator() const override
    {
        return hasLower ? LimitOperator(LimitOperator::NotBelow) : LimitOperator();
    }
    LimitOperator GetUpperOperator() const override
    {
        return hasUpper ? LimitOperator(LimitOperator::NotAbove) : LimitOperator();
    }

    MeasurementUnit measurementUnit;

private:
    QVariant lower;
    QVariant upper;
    bool hasLower;
    bool hasUpper;
};

class TestComponentFactory {
public:
    static ValidationInterface* CreateValidationInt(int unit, const char* lowerOperator,
                                                    const char* upperOperator, int lower, int upper, long,
                                                    long, long, long, long, long)
    {
        return new Limits(unit, lowerOperator, upperOperator, lower, upper);
    }
    static ValidationInterface* CreateValidationReal(int unit, const char* lowerOperator,
                                                     const char* upperOperator, double lower, double upper,
                                                     long, long, long, long, long, long, QVariant, double)
    {
        return new Limits(unit, lowerOperator, upperOperator, lower, upper);
    }
    static ValidationInterface* CreateValidationString(int unit, const char* lowerOperator,
                                                       const QString& text, long, long, long, long)
    {
        return new Limits(unit, lowerOperator, nullptr, text, QVariant());
    }
};

} // namespace ZYN
