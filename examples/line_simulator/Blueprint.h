#pragma once

#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

#include <limits>

namespace ZYN {
class TestProgram;
class ValidationInterface;
} // namespace ZYN

namespace ZYN::Simulation {

inline constexpr double noLimit = std::numeric_limits<double>::quiet_NaN();

/// How a measurement's value looks and is judged.
enum class ValueKind { Real, Integer, Bits, Check, Text };

/// What an instrument of so many decimal places shows. A division by a power of ten is correctly rounded, so
/// the number's shortest text has no more places than that.
double Resolved(double value, int digits);

/// One measurement as its author planned it. Values are in the unit without prefix.
struct MeasurementDef {
    long id = 0; ///< 0: the step's only measurement, shown in the step's row; takes the step's name
    QString name = {};
    ValueKind kind = ValueKind::Real;
    int unit = MeasurementUnit::None;
    int scale = 0;        ///< power of ten of the shown prefix
    double nominal = 0.0; ///< what a good board has; integers, bits and checks must have exactly this
    double lower = noLimit;
    double upper = noLimit;
    double sigma = 0.0; ///< spread over boards
    double drift = 0.0; ///< how far the value moves while the line warms up
    int digits = 3;     ///< decimal places that the instrument resolves
    QString text = {};  ///< what a text must be; empty takes any text
    int bin = 1;        ///< hard bin of a failure
    int milliseconds = 10;
    QString instrument = {};
    bool reported = true;
};

struct StepDef {
    long id = 0;
    QString name = {};
    QList<MeasurementDef> measurements = {};
    bool reported = true;
    bool enabled = true;
};

/// A value that a group was run with.
struct ParameterDef {
    long id = 0;
    QString name = {};
    EN_ZYN_ADDRESS type = ZYN_ADDRESS_REAL;
    int unit = MeasurementUnit::None;
    double value = 0.0;
    QString text = {};
};

struct GroupDef {
    long id = 0;
    QString name = {};
    EN_ZYN_GROUP kind = ZYN_GROUP_USER;
    QList<ParameterDef> parameters = {};
    QList<StepDef> steps = {};
};

/// A test program as data, from which any number of program objects are built.
///
/// Validations are created once and shared by all programs built from the same blueprint. One blueprint
/// is used by one thread at a time.
class Blueprint {
public:
    explicit Blueprint(const QList<GroupDef>& groups);

    const QList<GroupDef>& Groups() const { return m_groups; }
    /// A new program object with its plan values, attributes and validations.
    QSharedPointer<TestProgram> Build() const;

private:
    QList<GroupDef> m_groups;
    QList<QSharedPointer<ValidationInterface>> m_validations; ///< one a measurement, in walk order
};

} // namespace ZYN::Simulation
