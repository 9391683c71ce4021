#pragma once

#include "runs/Run.h"

#include <QtCore/QCryptographicHash>

#include <cmath>

/// Runs made by hand.
namespace ZYN::SampleRuns {

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr float NoTime = std::numeric_limits<float>::quiet_NaN();

inline std::string Hash(const std::string& text)
{
    return QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Sha256)
        .toStdString();
}

/// A program of one group with two steps, in the first one a parameter and two measurements, in the second
/// one measurement.
inline std::shared_ptr<const RunLayout> Layout(const std::string& program)
{
    RunLayout layout{
        .program = program, .programIdent = "P1", .version = "1.0", .components = {}, .hash = Hash(program)};
    const auto add = [&](ComponentKind kind, int parent, const std::string& ident, const std::string& name,
                         int dataType = 0, const std::string& unit = {}, int factor = 0) {
        const std::string above = parent < 0 ? "" : layout.components[size_t(parent)].path + " / ";
        RunComponent component{kind, parent, ident,  name, above + ident, above + name, dataType,
                               unit, 0,      factor, {}};
        component.hash[0] = std::hash<std::string>()(component.identity + unit + std::to_string(dataType));
        layout.components.push_back(component);
    };
    add(ComponentKind::Group, -1, "G1", "Supply");
    add(ComponentKind::Step, 0, "S1", "Core");
    add(ComponentKind::Parameter, 1, "P1", "Load", 8, "A");
    add(ComponentKind::Measurement, 1, "M1", "Core voltage", 8, "V", -3);
    add(ComponentKind::Measurement, 1, "M2", "State", 9);
    add(ComponentKind::Step, 0, "S2", "I/O");
    add(ComponentKind::Measurement, 5, "M3", "I/O voltage", 7, "V");
    return std::make_shared<const RunLayout>(layout);
}

/// 1.1 to 1.3 V for the core voltage.
inline std::shared_ptr<const RunLimits> Limits(double lower = 1.1)
{
    RunLimits limits{std::vector<double>(7, NoNumber),
                     std::vector<double>(7, NoNumber),
                     std::vector<std::string>(7),
                     std::vector<std::string>(7),
                     std::vector<double>(7, NoNumber),
                     std::vector<bool>(7),
                     {},
                     {},
                     {}};
    limits.lower[3] = lower;
    limits.upper[3] = 1.3;
    limits.lowerOperator[3] = ">=";
    limits.upperOperator[3] = "<=";
    limits.hash = Hash("limits " + std::to_string(lower));
    return std::make_shared<const RunLimits>(limits);
}

/// A run of the board with this serial that began so many minutes after 2026-11-23 08:00 +01:00. A negative
/// code fails the core voltage.
inline Run Of(const std::string& serial, int minute, int code = 1)
{
    Run run;
    run.product = "Board";
    run.lot = "L1";
    run.serial = serial;
    run.ident = "DUT";
    run.start = 1795417200000 + minute * 60000LL - 3600000LL;
    run.utcOffset = 60;
    run.startText =
        "2026-11-23 08:" + std::string(minute < 10 ? "0" : "") + std::to_string(minute) + ":00 +01:00";
    run.station = "ST1";
    run.operatorName = "Smith";
    run.code = code;
    run.layout = Layout("Function");
    run.limits = Limits();
    const auto below = std::int16_t(code);
    run.values = {NoNumber, NoNumber, 0.5, code < 0 ? 1.05 : 1.2, NoNumber, NoNumber, 3};
    run.codes = {below, below, Run::NoCode, below, 1, 1, 1};
    run.seconds = std::vector<float>(7, NoTime);
    run.texts = {{4, "ready"}};
    return run;
}

} // namespace ZYN::SampleRuns
