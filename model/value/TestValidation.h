#pragma once

#include <ZYNCommon/ValidationInterface.h>

#include <array>
#include <memory>
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
    static constexpr BinIds NoBinIds{-1, -1, -1, -1, -1, -1};

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

    TestValidation(int unitCode, ValueDisplay::ScaleFactor factor, const Limit& lower, const Limit& upper,
                   const BinIds& binIds);

    /// The type's properties; they live as long as the program.
    virtual std::span<const Property> Properties() const = 0;

    /// A value as a limit of this type; invalid when it does not fit. Texts are converted.
    virtual QVariant ToLimit(const QVariant& value) const = 0;
    /// Whether a value lies inside the limits; nothing when it cannot be compared with them.
    virtual std::optional<bool> IsInside(const QVariant& value) const = 0;

    void SetNominal(const QVariant& nominal);

private:
    MeasurementUnit m_unit;
    mutable ValueDisplay m_display; ///< handed out for changing, also by a constant validation
    bool m_inverted = false;

protected:
    Limit m_lower;
    Limit m_upper;

private:
    /// What few validations have. A program has a million, and a walk over them waits for memory.
    struct Extras {
        QVariant nominal;
        BinIds binIds = NoBinIds;
    };
    Extras& NeedExtras();
    long BinIdOf(BinId bin) const;
    const Property* FindProperty(const QString& name) const;
    bool SetLimitValue(QVariant& limit, const QVariant& value);
    bool SetScaleFactor(const QVariant& value);

    std::unique_ptr<Extras> m_extras;
};

} // namespace ZYN
