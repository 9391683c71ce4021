#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN {

/// Unit of a measured value, known by its code. An unknown code is kept and has no text.
class ZYNCOMMON_EXPORT MeasurementUnit {
public:
    static constexpr int None = 0;
    static constexpr int Volt = 1;
    static constexpr int Ampere = 2;
    static constexpr int Ohm = 3;
    static constexpr int Farad = 4;
    static constexpr int Henry = 5;
    static constexpr int Hertz = 6;
    static constexpr int Second = 7;
    static constexpr int Watt = 8;
    static constexpr int DegreeCelsius = 9;
    static constexpr int Percent = 10;
    static constexpr int Kelvin = 11;
    static constexpr int Decibel = 12;
    static constexpr int Metre = 13;
    static constexpr int Gram = 14;
    static constexpr int Pascal = 15;
    static constexpr int Newton = 16;
    static constexpr int Coulomb = 17;
    static constexpr int Joule = 18;
    static constexpr int Lumen = 19;
    static constexpr int Candela = 20;
    static constexpr int Lux = 21;
    static constexpr int Tesla = 22;
    static constexpr int RevolutionsPerMinute = 23;
    static constexpr int Siemens = 24;
    /// Values and limits are shown as hexadecimal digits.
    static constexpr int Hexadecimal = 25;
    /// Values and limits are shown as binary digits.
    static constexpr int Binary = 26;

    explicit MeasurementUnit(int code = None);
    int GetCode() const;
    /// For people: "V", "Ω", "°C", "hex"; empty for none and for an unknown code.
    QString ToString() const;
    /// The same in plain ASCII: "V", "Ohm", "degC", "hex".
    QString ToAsciiString() const;
    /// The base of the digits in which values of a unit are shown; 0 for decimal numbers.
    static constexpr int DigitBase(int code) { return code == Hexadecimal ? 16 : code == Binary ? 2 : 0; }
    /// All known codes in ascending order.
    static QList<int> KnownCodes();

private:
    int m_code;
};

} // namespace ZYN
