#pragma once

#include "TestValidation.h"

namespace ZYN {

/// Validation of texts: the value is compared with one text, which stands on the lower side. Texts are
/// ordered by their UTF-16 code units.
class TestValidationString : public TestValidation {
public:
    TestValidationString(int unitCode, const char* lowerOperator, const QString& text, long binIdFail,
                         long binIdPass, long softBinIdFail, long softBinIdPass);

protected:
    std::span<const Property> Properties() const override { return StringProperties; }
    QVariant ToLimit(const QVariant& value) const override;
    std::optional<bool> IsInside(const QVariant& value) const override;

private:
    static constexpr Property StringProperties[] = {
        {QLatin1StringView("Lower"), PropertyKind::LowerLimit},
        {QLatin1StringView("CompLower"), PropertyKind::LowerOperator},
        {QLatin1StringView("InvertResult"), PropertyKind::InvertResult},
        {QLatin1StringView("BinIdFail"), PropertyKind::BinId, BinLower},
        {QLatin1StringView("BinIdPass"), PropertyKind::BinId, BinPass},
        {QLatin1StringView("SoftBinIdFail"), PropertyKind::BinId, SoftBinLower},
        {QLatin1StringView("SoftBinIdPass"), PropertyKind::BinId, SoftBinPass},
    };
};

} // namespace ZYN
