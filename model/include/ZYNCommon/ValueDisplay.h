#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace ZYN {

/// How a value is shown: with a decimal prefix, or as hexadecimal or binary digits.
///
/// Texts are independent of the locale. A scaled text is made by shifting the decimal point in the
/// shortest exact decimal of the value, so no digit is lost: 0.0123 shown in milli is "12.3".
class ZYNCOMMON_EXPORT ValueDisplay {
public:
    /// Power of ten that a shown number is to be multiplied with. Other powers from -12 to 12 are
    /// allowed as numbers; they have no prefix of their own.
    enum ScaleFactor : int {
        ScalePico = -12,
        ScaleNano = -9,
        ScaleMicro = -6,
        ScaleMilli = -3,
        ScaleNone = 0,
        ScaleKilo = 3,
        ScaleMega = 6,
        ScaleGiga = 9,
        ScaleTera = 12
    };

    /// \param unitCode code of the unit; 25 shows hexadecimal and 26 binary digits, which are not scaled
    explicit ValueDisplay(ScaleFactor factor = ScaleNone, int unitCode = 0);

    /// Invalid gives an empty text; text stays as it is; not-a-number is "nan", infinities are "inf"
    /// and "-inf".
    QString ToString(const QVariant& value) const;
    /// The same without a scale.
    static QString StaticToString(const QVariant& value);
    ScaleFactor GetScaleFactor() const { return m_factor; }
    /// Text of the factor's prefix.
    QString GetScaleString() const;
    /// Whether a power has a prefix, be it the empty one of `ScaleNone`.
    static bool HasPrefix(ScaleFactor factor);
    /// "p", "n", "u", "m", "", "k", "M", "G", "T"; "#" for what is no prefix.
    static QString ScaleFactorToString(ScaleFactor factor);

private:
    ScaleFactor m_factor;
    int m_unitCode;
};

} // namespace ZYN
