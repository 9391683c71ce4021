#include "Recorder.h"

#include <ZYNCommon/ValueDisplay.h>

#include <QtCore/QHash>

#include <limits>

namespace ZYN::Python {

namespace {

int UnitOf(const QString& text)
{
    static const QHash<QString, int> codes = [] {
        QHash<QString, int> known;
        for (const int code : MeasurementUnit::KnownCodes()) {
            known.insert(MeasurementUnit(code).ToString(), code);
            known.insert(MeasurementUnit(code).ToAsciiString(), code);
        }
        return known;
    }();
    if (const auto code = codes.constFind(text); code != codes.constEnd())
        return *code;
    QStringList names;
    for (const int code : MeasurementUnit::KnownCodes())
        names.append(MeasurementUnit(code).ToAsciiString());
    names.removeAll(QString());
    throw py::value_error(QStringLiteral("there is no unit '%1'; choose of %2, and give prefix='m' for milli")
                              .arg(text, names.join(QStringLiteral(", ")))
                              .toStdString());
}

int PrefixOf(const py::object& prefix)
{
    if (py::isinstance<py::int_>(prefix))
        return prefix.cast<int>();
    const auto text = prefix.cast<QString>();
    for (int power = ValueDisplay::ScalePico; power <= ValueDisplay::ScaleTera; power += 3)
        if (ValueDisplay::ScaleFactorToString(ValueDisplay::ScaleFactor(power)) == text)
            return power;
    if (text == QString(QChar(0x00B5)))
        return ValueDisplay::ScaleMicro;
    throw py::value_error("there is no prefix '" + text.toStdString() +
                          "'; choose of p, n, u, m, k, M, G, T or a power of ten");
}

template <typename Number>
std::optional<Number> Some(const py::object& number)
{
    return number.is_none() ? std::nullopt : std::optional(number.cast<Number>());
}

MeasurementLimits Expected(const QString& name, const GivenLimits& given)
{
    if (!given.lower.is_none() || !given.upper.is_none())
        throw py::value_error("'" + name.toStdString() +
                              "' has an expected value: lower and upper are for numbers");
    if (py::isinstance<py::str>(given.expected))
        return TextLimit{.text = given.expected.cast<QString>()};
    if (py::isinstance<py::bool_>(given.expected))
        return BooleanLimit{.value = given.expected.cast<bool>()};
    const int unit = UnitOf(given.unit);
    if (unit == MeasurementUnit::Hexadecimal)
        return HexadecimalLimit{.value = given.expected.cast<unsigned int>()};
    if (py::isinstance<py::int_>(given.expected))
        return IntegerLimits{.lower = given.expected.cast<int>(), .unit = unit, .lowerOperator = "=="};
    return RealLimits{.lower = given.expected.cast<double>(),
                      .unit = unit,
                      .prefix = PrefixOf(given.prefix),
                      .lowerOperator = "=="};
}

} // namespace

MeasurementLimits LimitsOf(const QString& name, const GivenLimits& given)
{
    if (!given.expected.is_none())
        return Expected(name, given);
    if (given.lower.is_none() && given.upper.is_none() && given.nominal.is_none() && given.unit.isEmpty())
        return {};
    if (given.integer)
        return IntegerLimits{.lower = Some<int>(given.lower),
                             .upper = Some<int>(given.upper),
                             .unit = UnitOf(given.unit),
                             .lowerOperator = given.lowerOperator.c_str(),
                             .upperOperator = given.upperOperator.c_str()};
    return RealLimits{.lower = Some<double>(given.lower),
                      .upper = Some<double>(given.upper),
                      .unit = UnitOf(given.unit),
                      .prefix = PrefixOf(given.prefix),
                      .nominal = Some<double>(given.nominal),
                      .lowerOperator = given.lowerOperator.c_str(),
                      .upperOperator = given.upperOperator.c_str()};
}

QVariant VariantOf(const py::handle& value, bool integer)
{
    if (value.is_none())
        return {};
    if (py::isinstance<py::bool_>(value))
        return value.cast<bool>();
    if (py::isinstance<py::str>(value))
        return value.cast<QString>();
    if (integer)
        return QVariant::fromValue(value.cast<long long>());
    return value.cast<double>(); // numbers of NumPy too
}

} // namespace ZYN::Python
