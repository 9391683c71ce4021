#include "MotorBoard.h"

#include "Bins.h"

// Groups and steps in the order of the test. Ids count up in hundreds a group and in tens a step; they are
// what faults and test plans name components by.

namespace ZYN::Simulation {

namespace {

using Unit = MeasurementUnit;
constexpr int milli = -3;
constexpr int micro = -6;
constexpr int nano = -9;
constexpr int pico = -12;
constexpr int kilo = 3;
constexpr int mega = 6;

constexpr QLatin1String multimeter{"DMM1"};
constexpr QLatin1String counter{"CNT1"};

// A boolean that has to be true.
MeasurementDef Check(long id, const char* name, int bin, int milliseconds)
{
    return {.id = id,
            .name = QLatin1String(name),
            .kind = ValueKind::Check,
            .nominal = 1.0,
            .bin = bin,
            .milliseconds = milliseconds};
}

// A register or port pattern that has to be exact.
MeasurementDef Pattern(long id, const char* name, int unit, int wanted)
{
    return {.id = id,
            .name = QLatin1String(name),
            .kind = ValueKind::Bits,
            .unit = unit,
            .nominal = double(wanted),
            .bin = BinProcessor,
            .milliseconds = 4};
}

MeasurementDef Rail(long id, const char* name, double volts, double tolerance, double sigma)
{
    return {.id = id,
            .name = QLatin1String(name),
            .unit = Unit::Volt,
            .nominal = volts,
            .lower = Resolved(volts - tolerance, 4),
            .upper = Resolved(volts + tolerance, 4),
            .sigma = sigma,
            .drift = -sigma,
            .digits = 4,
            .bin = BinSupply,
            .milliseconds = 22,
            .instrument = multimeter};
}

MeasurementDef Ripple(long id, const char* name, double upper)
{
    return {.id = id,
            .name = QLatin1String(name),
            .unit = Unit::Volt,
            .scale = milli,
            .nominal = upper / 3.0,
            .upper = upper,
            .sigma = upper / 24.0,
            .digits = 6,
            .bin = BinSupply,
            .milliseconds = 35,
            .instrument = multimeter};
}

// A part in circuit, with limits as a fraction of its value.
MeasurementDef Part(long id, const char* name, int unit, int scale, double value, double tolerance,
                    int digits)
{
    return {.id = id,
            .name = QLatin1String(name),
            .unit = unit,
            .scale = scale,
            .nominal = value,
            .lower = Resolved(value * (1.0 - tolerance), digits),
            .upper = Resolved(value * (1.0 + tolerance), digits),
            .sigma = value * tolerance / 7.0,
            .digits = digits,
            .bin = BinPassiveParts,
            .milliseconds = 15,
            .instrument = multimeter};
}

// Motor current and on-resistance of one output; phase V is the lot's weak spot and drifts.
StepDef Phase(long id, const char* name, double drift)
{
    MeasurementDef current{.id = id + 1,
                           .name = QStringLiteral("Current"),
                           .unit = Unit::Ampere,
                           .nominal = 2.5,
                           .lower = 2.35,
                           .upper = 2.65,
                           .sigma = 0.018,
                           .drift = drift,
                           .digits = 4,
                           .bin = BinMotorOutputs,
                           .milliseconds = 120,
                           .instrument = multimeter};
    MeasurementDef resistance{.id = id + 2,
                              .name = QStringLiteral("On-resistance"),
                              .unit = Unit::Ohm,
                              .scale = milli,
                              .nominal = 0.0048,
                              .upper = 0.0065,
                              .sigma = 0.0002,
                              .digits = 6,
                              .bin = BinMotorOutputs,
                              .milliseconds = 40,
                              .instrument = multimeter};
    return {.id = id, .name = QLatin1String(name), .measurements = {current, resistance}};
}

GroupDef SetUp()
{
    return {.id = 100,
            .name = QStringLiteral("Set-up"),
            .kind = ZYN_GROUP_SETUP,
            .parameters =
                {{.id = 101, .name = QStringLiteral("Supply voltage"), .unit = Unit::Volt, .value = 48.0},
                 {.id = 102, .name = QStringLiteral("Current limit"), .unit = Unit::Ampere, .value = 0.8},
                 {.id = 103, .name = QStringLiteral("Averages"), .type = ZYN_ADDRESS_INTEGER, .value = 4},
                 {.id = 104,
                  .name = QStringLiteral("Adapter"),
                  .type = ZYN_ADDRESS_STRING,
                  .text = QStringLiteral("MCB-48 rev. C")}},
            .steps = {{.id = 110,
                       .name = QStringLiteral("Contact check"),
                       .measurements = {Check(0, "", BinContact, 60)}},
                      {.id = 120,
                       .name = QStringLiteral("Burn-in"),
                       .measurements = {Check(0, "", BinGood, 0)},
                       .enabled = false}}};
}

GroupDef PassiveParts()
{
    return {.id = 200,
            .name = QStringLiteral("Passive parts"),
            .steps = {{.id = 210,
                       .name = QStringLiteral("Shunts"),
                       .measurements = {Part(211, "R12", Unit::Ohm, milli, 0.005, 0.02, 7),
                                        Part(212, "R13", Unit::Ohm, milli, 0.005, 0.02, 7)}},
                      {.id = 220,
                       .name = QStringLiteral("Dividers"),
                       .measurements = {Part(221, "R30", Unit::Ohm, kilo, 10.0e3, 0.01, 1),
                                        Part(222, "R31", Unit::Ohm, kilo, 47.0e3, 0.01, 1)}},
                      {.id = 230,
                       .name = QStringLiteral("Filter capacitors"),
                       .measurements = {Part(231, "C20", Unit::Farad, nano, 100e-9, 0.12, 11),
                                        Part(232, "C21", Unit::Farad, nano, 100e-9, 0.12, 11)}},
                      {.id = 240,
                       .name = QStringLiteral("Crystal load"),
                       .measurements = {Part(241, "C40", Unit::Farad, pico, 18e-12, 0.08, 14),
                                        Part(242, "C41", Unit::Farad, pico, 18e-12, 0.08, 14)}}}};
}

GroupDef Power()
{
    MeasurementDef input{.unit = Unit::Ampere,
                         .scale = milli,
                         .nominal = 0.182,
                         .lower = 0.15,
                         .upper = 0.22,
                         .sigma = 0.004,
                         .digits = 5,
                         .bin = BinSupply,
                         .milliseconds = 80,
                         .instrument = multimeter};
    return {
        .id = 300,
        .name = QStringLiteral("Power"),
        .steps = {{.id = 310, .name = QStringLiteral("Input current"), .measurements = {input}},
                  {.id = 320,
                   .name = QStringLiteral("Rail 12 V"),
                   .measurements = {Rail(321, "Voltage", 12.0, 0.36, 0.05), Ripple(322, "Ripple", 0.06)}},
                  {.id = 330,
                   .name = QStringLiteral("Rail 5 V"),
                   .measurements = {Rail(331, "Voltage", 5.0, 0.15, 0.018), Ripple(332, "Ripple", 0.03)}},
                  {.id = 340,
                   .name = QStringLiteral("Rail 3.3 V"),
                   .measurements = {Rail(341, "Voltage", 3.3, 0.1, 0.011), Ripple(342, "Ripple", 0.02)}}}};
}

GroupDef Processor()
{
    MeasurementDef firmware{
        .kind = ValueKind::Text, .text = QStringLiteral("2.4.1"), .bin = BinProcessor, .milliseconds = 140};
    MeasurementDef crystal{.id = 441,
                           .name = QStringLiteral("Crystal"),
                           .unit = Unit::Hertz,
                           .scale = mega,
                           .nominal = 16e6,
                           .lower = 15.9992e6,
                           .upper = 16.0008e6,
                           .sigma = 110.0,
                           .drift = 60.0,
                           .digits = 0,
                           .bin = BinProcessor,
                           .milliseconds = 105,
                           .instrument = counter};
    MeasurementDef pwm = crystal;
    pwm.id = 442;
    pwm.name = QStringLiteral("PWM");
    pwm.scale = kilo;
    pwm.nominal = 20e3;
    pwm.lower = 19.9e3;
    pwm.upper = 20.1e3;
    pwm.sigma = 8.0;
    pwm.drift = 0.0;
    MeasurementDef boot{.unit = Unit::Second,
                        .scale = milli,
                        .nominal = 0.41,
                        .upper = 0.6,
                        .sigma = 0.02,
                        .digits = 4,
                        .bin = BinProcessor,
                        .milliseconds = 410};
    MeasurementDef samples{.id = 461,
                           .name = QStringLiteral("Samples"),
                           .kind = ValueKind::Integer,
                           .nominal = 4096,
                           .bin = BinProcessor};
    MeasurementDef resets = Check(432, "Watchdog resets", BinProcessor, 2);
    resets.kind = ValueKind::Integer;
    resets.nominal = 0;
    resets.reported = false;
    return {.id = 400,
            .name = QStringLiteral("Processor"),
            .steps = {{.id = 410, .name = QStringLiteral("Firmware"), .measurements = {firmware}},
                      {.id = 420, .name = QStringLiteral("Boot time"), .measurements = {boot}},
                      {.id = 430,
                       .name = QStringLiteral("Status"),
                       .measurements = {Pattern(431, "Status word", Unit::Hexadecimal, 0x40c1), resets,
                                        Pattern(433, "Port B", Unit::Binary, 0b10110010)}},
                      {.id = 440, .name = QStringLiteral("Clocks"), .measurements = {crystal, pwm}},
                      {.id = 460,
                       .name = QStringLiteral("Raw ADC samples"),
                       .measurements = {samples},
                       .reported = false}}};
}

GroupDef MotorOutputs()
{
    MeasurementDef temperature{.unit = Unit::DegreeCelsius,
                               .nominal = 41.0,
                               .upper = 60.0,
                               .sigma = 1.6,
                               .drift = 4.0,
                               .digits = 1,
                               .bin = BinMotorOutputs,
                               .milliseconds = 12};
    MeasurementDef speed{.unit = Unit::RevolutionsPerMinute,
                         .nominal = 3000.0,
                         .lower = 2940.0,
                         .upper = 3060.0,
                         .sigma = 9.0,
                         .digits = 0,
                         .bin = BinMotorOutputs,
                         .milliseconds = 900,
                         .instrument = counter};
    return {.id = 500,
            .name = QStringLiteral("Motor outputs"),
            .parameters =
                {{.id = 501, .name = QStringLiteral("Load torque"), .type = ZYN_ADDRESS_REAL, .value = 0.35}},
            .steps = {Phase(510, "Phase U", 0.0),
                      Phase(520, "Phase V", 0.055),
                      Phase(530, "Phase W", 0.0),
                      {.id = 540, .name = QStringLiteral("Motor speed"), .measurements = {speed}},
                      {.id = 550,
                       .name = QStringLiteral("Over-current trip"),
                       .measurements = {Check(0, "", BinMotorOutputs, 75)}},
                      {.id = 560, .name = QStringLiteral("Temperature"), .measurements = {temperature}}}};
}

GroupDef Communication()
{
    MeasurementDef voltage{.id = 612,
                           .name = QStringLiteral("Dominant level"),
                           .unit = Unit::Volt,
                           .nominal = 2.1,
                           .lower = 1.5,
                           .upper = 3.0,
                           .sigma = 0.06,
                           .digits = 3,
                           .bin = BinCommunication,
                           .milliseconds = 18,
                           .instrument = multimeter};
    MeasurementDef errors{.id = 613,
                          .name = QStringLiteral("Bit errors"),
                          .kind = ValueKind::Integer,
                          .bin = BinCommunication,
                          .milliseconds = 30};
    MeasurementDef comment{.kind = ValueKind::Text, .bin = BinGood, .milliseconds = 2600};
    return {.id = 600,
            .name = QStringLiteral("Communication"),
            .steps = {{.id = 610,
                       .name = QStringLiteral("CAN"),
                       .measurements = {Check(611, "Loopback", BinCommunication, 25), voltage, errors}},
                      {.id = 620,
                       .name = QStringLiteral("Lamp check"),
                       .measurements = {Check(0, "", BinCommunication, 1800)}},
                      {.id = 630, .name = QStringLiteral("Operator's comment"), .measurements = {comment}}}};
}

GroupDef Sweep(int steps, int measurements)
{
    GroupDef group{.id = 700, .name = QStringLiteral("Torque sweep")};
    group.steps.reserve(steps);
    long id = 1'000'000;
    for (int i = 1; i <= steps; ++i) {
        StepDef step{.id = ++id, .name = QStringLiteral("Point %1").arg(i)};
        step.measurements.reserve(measurements);
        for (int k = 1; k <= measurements; ++k)
            step.measurements.append({.id = ++id,
                                      .name = QStringLiteral("I%1").arg(k),
                                      .unit = Unit::Ampere,
                                      .scale = milli,
                                      .nominal = Resolved(0.1 * k, 5),
                                      .lower = Resolved(0.09 * k, 5),
                                      .upper = Resolved(0.11 * k, 5),
                                      .sigma = 0.0014 * k,
                                      .digits = 5,
                                      .bin = BinMotorOutputs,
                                      .milliseconds = 2});
        group.steps.append(step);
    }
    return group;
}

GroupDef CleanUp()
{
    MeasurementDef residual{.unit = Unit::Volt,
                            .nominal = 0.4,
                            .upper = 2.0,
                            .sigma = 0.08,
                            .digits = 3,
                            .bin = BinSupply,
                            .milliseconds = 250,
                            .instrument = multimeter};
    MeasurementDef leakage{.unit = Unit::Ampere,
                           .scale = micro,
                           .nominal = 12e-6,
                           .upper = 50e-6,
                           .sigma = 2e-6,
                           .digits = 8,
                           .bin = BinSupply,
                           .milliseconds = 90,
                           .instrument = multimeter};
    return {.id = 900,
            .name = QStringLiteral("Clean-up"),
            .kind = ZYN_GROUP_CLEANUP,
            .steps = {{.id = 910, .name = QStringLiteral("Discharge"), .measurements = {residual}},
                      {.id = 920, .name = QStringLiteral("Leakage"), .measurements = {leakage}}}};
}

} // namespace

QList<GroupDef> MotorBoardTest(int sweepSteps, int sweepMeasurements)
{
    QList<GroupDef> groups{SetUp(), PassiveParts(), Power(), Processor(), MotorOutputs(), Communication()};
    if (sweepSteps > 0)
        groups.append(Sweep(sweepSteps, sweepMeasurements));
    groups.append(CleanUp());
    return groups;
}

} // namespace ZYN::Simulation
