#pragma once

#include "TestValidation.h"

namespace ZYN {

/// Validation of numbers. Values and limits are compared exactly, whatever their types are.
class TestValidationNumber : public TestValidation {
protected:
    using TestValidation::TestValidation;
    std::optional<bool> IsInside(const QVariant& value) const override;

    static constexpr Property RealProperties[] = {
        {QLatin1StringView("Lower"), PropertyKind::LowerLimit},
        {QLatin1StringView("CompLower"), PropertyKind::LowerOperator},
        {QLatin1StringView("Upper"), PropertyKind::UpperLimit},
        {QLatin1StringView("CompUpper"), PropertyKind::UpperOperator},
        {QLatin1StringView("InvertResult"), PropertyKind::InvertResult},
        {QLatin1StringView("ScaleFactor"), PropertyKind::ScaleFactor},
        {QLatin1StringView("BinIdLower"), PropertyKind::BinId, BinLower},
        {QLatin1StringView("BinIdUpper"), PropertyKind::BinId, BinUpper},
        {QLatin1StringView("BinIdPass"), PropertyKind::BinId, BinPass},
        {QLatin1StringView("SoftBinIdLower"), PropertyKind::BinId, SoftBinLower},
        {QLatin1StringView("SoftBinIdUpper"), PropertyKind::BinId, SoftBinUpper},
        {QLatin1StringView("SoftBinIdPass"), PropertyKind::BinId, SoftBinPass},
        {QLatin1StringView("Nominal"), PropertyKind::Nominal},
    };
    /// Integers have no nominal value, which stands last.
    static constexpr std::span<const Property> IntProperties =
        std::span<const Property>(RealProperties).first(std::size(RealProperties) - 1);
};

/// Validation of integers; its limits are 64-bit integers.
class TestValidationInt : public TestValidationNumber {
public:
    TestValidationInt(int unitCode, const char* lowerOperator, const char* upperOperator, qint64 lower,
                      qint64 upper, const BinIds& binIds);

protected:
    std::span<const Property> Properties() const override { return IntProperties; }
    QVariant ToLimit(const QVariant& value) const override;
};

/// Validation of real numbers.
class TestValidationReal : public TestValidationNumber {
public:
    /// \param nominal not-a-number means none
    TestValidationReal(int unitCode, const char* lowerOperator, const char* upperOperator, double lower,
                       double upper, const BinIds& binIds, ValueDisplay::ScaleFactor factor, double nominal);

protected:
    std::span<const Property> Properties() const override { return RealProperties; }
    QVariant ToLimit(const QVariant& value) const override;
};

} // namespace ZYN
