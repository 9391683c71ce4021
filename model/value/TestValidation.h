#pragma once

#include <ZYNCommon/ValidationInterface.h>

#include <array>
#include <optional>
#include <span>

namespace ZYN {

/// What the validations of all data types have in common: limits, display, unit, bin ids and the named
/// properties. A subclass says what a limit of its type is and how a value compares with it.
class TestValidation : public ValidationInterface {
public:
    enum BinId { BinLower, BinUpper, BinPass, SoftBinLower, SoftBinUpper, SoftBinPass, BinIdCount };
    /// Bin ids in the order of `BinId`; -1 where there is none.
    using BinIds = std::array<long, BinIdCount>;

    ValueDisplay* GetValueDisplay() const override;
    bool HasLowerLimit() const override;
    bool HasUpperLimit() const override;
    QVariant GetLowerLimit() const override;
    QVariant GetUpperLimit() const override;
    QString GetLowerLimitText() const override;
    QString GetUpperLimitText() const override;
    LimitOperator GetLowerOperator() const override;
    LimitOperator GetUpperOperator() const override;
    bool HasNominal() const override;
    QVariant GetNominal() const override;
    QString GetNominalText() const override;
    MeasurementUnit GetMeasurementUnit() const override;
    bool IsResultInverted() const override;
    void SetResultInverted(bool inverted) override;
    QList<QString> GetPropertyNames() const override;
    QVariant GetProperty(const QString& name) const override;
    bool SetProperty(const QString& name, const QVariant& value) override;
    bool Validate(const QVariant& value) const override;
    Limits GetLimits() const override;

protected:
    enum class PropertyKind {
        LowerLimit,
        LowerOperator,
        UpperLimit,
        UpperOperator,
        Nominal,
        InvertResult,
        ScaleFactor,
        BinId
    };
    /// A named property and the member it stands for.
    struct Property {
        QLatin1StringView name;
        PropertyKind kind;
        BinId bin = BinLower;
    };

    /// One side: a limit exists when it has an operator and a value.
    struct Limit {
        LimitOperator op;
        QVariant value;

        Limit(const char* operatorText, const QVariant& limit);
        bool Exists() const { return op.GetCode() != LimitOperator::None && value.isValid(); }
        /// The value, invalid when the limit does not exist.
        QVariant Get() const { return Exists() ? value : QVariant(); }
    };

    /// \param properties the type's properties; they live as long as the program
    TestValidation(std::span<const Property> properties, int unitCode, ValueDisplay::ScaleFactor factor,
                   const Limit& lower, const Limit& upper, const BinIds& binIds);

    /// A value as a limit of this type; invalid when it does not fit. Texts are converted.
    virtual QVariant ToLimit(const QVariant& value) const = 0;
    /// Whether a value lies inside the limits; nothing when it cannot be compared with them.
    virtual std::optional<bool> IsInside(const QVariant& value) const = 0;

    // What every value needs stands together at the front.
private:
    MeasurementUnit m_unit;
    mutable ValueDisplay m_display; ///< handed out for changing, also by a constant validation

protected:
    Limit m_lower;
    Limit m_upper;
    QVariant m_nominal;

private:
    const Property* FindProperty(const QString& name) const;
    bool SetLimitValue(QVariant& limit, const QVariant& value);
    bool SetScaleFactor(const QVariant& value);

    std::span<const Property> m_properties;
    bool m_inverted = false;
    BinIds m_binIds;
};

} // namespace ZYN
