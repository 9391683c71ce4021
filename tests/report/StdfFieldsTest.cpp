#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"
#include "support/Rows.h"

#include <ZYNCommon/MeasurementUnit.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <bit>
#include <cmath>
#include <limits>

using namespace ZYN;
using namespace LotModels;

namespace {

constexpr quint32 unknown = 4294967295U;

/// What a C*n field must hold: the first 255 UTF-16 units, '?' for what Latin-1 does not have.
QString Encoded(const QString& text)
{
    QString kept = text.left(255);
    for (QChar& character : kept) {
        if (character.unicode() > 0xff)
            character = u'?';
    }
    return kept;
}

/// A real by its bits, so that every not-a-number is told apart.
QString Bits(float value)
{
    return QString::number(std::bit_cast<quint32>(value), 16);
}

/// The fields that a record must have as one text.
template <class... Values>
QString Joined(const Values&... values)
{
    return QStringList{QVariant(values).toString()...}.join('|');
}

/// The same of a record that was read.
QString Fields(const Stdf::Record& record)
{
    QStringList fields{QLatin1StringView(record.type->name)};
    for (const QVariant& value : record.values)
        fields += value.typeId() == QMetaType::Float ? Bits(value.toFloat()) : value.toString();
    return fields.join(u'|');
}

bool Holds(float left, float right, const QString& op)
{
    if (std::isnan(left) || std::isnan(right))
        return false;
    return op == u"<="   ? left <= right
           : op == u"<"  ? left < right
           : op == u">=" ? left >= right
           : op == u">"  ? left > right
           : op == u"==" ? left == right
                         : left != right;
}

/// The PTR of a measurement, field by field, from the plain data.
QString ExpectedTest(uint number, const MeasurementData& measurement, const QString& step,
                     const QString& group)
{
    float result = 0.0F;
    float low = 0.0F;
    float high = 0.0F;
    uint testFlags = 2;
    uint parameterFlags = 0;
    uint optional = 0x01 | 0x04 | 0x08 | 0x40 | 0x80;
    int scale = 0;
    QString unit;
    const bool numeric = measurement.kind == ZYN_ADDRESS_INTEGER || measurement.kind == ZYN_ADDRESS_REAL;
    if (measurement.limits) {
        const LimitsData& limits = *measurement.limits;
        scale = limits.real ? limits.scale : 0;
        unit = MeasurementUnit(limits.unit).ToAsciiString();
        const auto factor = static_cast<float>(std::pow(0.1, scale));
        const auto scaled = [&](double value) { return numeric ? static_cast<float>(value) * factor : 0.0F; };
        const bool prefixExists = scale % 3 == 0;
        if (prefixExists)
            optional &= ~1U;
        if (measurement.value.isValid()) {
            testFlags = 0;
            result = scaled(measurement.value.toDouble());
        }
        if (!limits.lowerOperator.isEmpty()) {
            optional &= ~0x40U;
            low = scaled(limits.lower);
            parameterFlags |= Holds(low, result, limits.lowerOperator) ? 0U : 0x10U;
        }
        if (!limits.upperOperator.isEmpty()) {
            optional &= ~0x80U;
            high = scaled(limits.upper);
            parameterFlags |= Holds(result, high, limits.upperOperator) ? 0U : 0x08U;
        }
    }
    const QMap<EN_ZYN_RESULT, uint> verdicts{{ZYN_RESULT_ERROR, 0x20},
                                             {ZYN_RESULT_ABORTED, 0x20},
                                             {ZYN_RESULT_DONE, 0x40},
                                             {ZYN_RESULT_FAILED, 0x80}};
    testFlags |= verdicts.value(measurement.result);

    QString text = '[' + measurement.ident + "] " + measurement.name + " - ";
    if (measurement.name != step)
        text += step + " - ";
    const QString exponent = QString::number(-scale);
    return Joined("PTR", number, 1, 1, testFlags, parameterFlags, Bits(result), Encoded(text + group), "",
                  optional, exponent, exponent, exponent, Bits(low), Bits(high), unit);
}

QStringList ExpectedPart(const UnitData& unit, const UnitData& whole)
{
    QStringList records;
    uint number = 0;
    for (const GroupData& group : unit.groups) {
        for (const StepData& step : group.steps) {
            for (const MeasurementData& measurement : step.measurements) {
                if (measurement.hasResult)
                    records += ExpectedTest(++number, measurement, step.name, group.name);
            }
        }
    }
    if (records.isEmpty())
        return {};
    const int flags = unit.result == ZYN_RESULT_FAILED                                       ? 8
                      : unit.result == ZYN_RESULT_ERROR || unit.result == ZYN_RESULT_ABORTED ? 4
                                                                                             : 0;
    const auto milliseconds = static_cast<quint32>(std::llround(unit.seconds * 1000));
    records.prepend("PIR|1|1");
    records += Joined("PRR", 1, 1, flags, number, 0, 65535, -32768, -32768, milliseconds, Encoded(unit.ident),
                      Encoded(unit.product.isNull() ? whole.product : unit.product));
    return records;
}

QString Seconds(const QDateTime& time)
{
    return QString::number(time.isValid() ? time.toSecsSinceEpoch() : 0);
}

QStringList ExpectedFile(const UnitData& unit)
{
    const QString start = Seconds(unit.start);
    QStringList records{"FAR|2|4",
                        Joined("MIR", start, start, 1, "P", " ", " ", 65535, " ", Encoded(unit.lot),
                               Encoded(unit.product), Encoded(unit.machine), "", Encoded(unit.program),
                               Encoded(unit.version), "", Encoded(unit.user))};
    uint parts = 0;
    uint good = 0;
    QString finish = Seconds(unit.stop);
    for (const UnitData& part : QList<UnitData>{unit} + unit.items) {
        const QStringList partRecords = ExpectedPart(part, unit);
        records += partRecords;
        if (!partRecords.isEmpty()) {
            ++parts;
            good += part.result == ZYN_RESULT_PASSED;
        }
        if (part.stop.isValid())
            finish = Seconds(part.stop);
    }
    records += Joined("PCR", 1, 1, parts, unknown, unknown, good, unknown);
    records += Joined("MRR", finish);
    return records;
}

/// Random units: everything that a model can hold and a record must survive.
class Units {
public:
    explicit Units(quint32 seed)
        : random(seed)
    {
    }

    UnitData Any()
    {
        UnitData unit = Part();
        unit.product = Text();
        if (unit.product.isEmpty())
            unit.product = "P"; // the model knows no product without a name
        for (QString* text : {&unit.lot, &unit.machine, &unit.user, &unit.program, &unit.version})
            *text = Text();
        unit.start = Time();
        unit.stop = Time();
        if (Chance(3)) {
            for (int items = random.bounded(4); items > 0; --items)
                unit.items.append(Part());
        }
        return unit;
    }

private:
    bool Chance(int in) { return random.bounded(in) == 0; }

    template <class Value>
    Value OneOf(std::initializer_list<Value> values)
    {
        return values.begin()[random.bounded(int(values.size()))];
    }

    QString Text()
    {
        static const QStringList pieces{"a",    "Z9",         " - ",         "%1%2",   "\n\t",    "ÄÖÿ", "Ω",
                                        "漢字", "\U0001F600", QChar(0xd800), QChar(0), "e\u0301", "[1] "};
        QString text;
        const int length = OneOf({0, 1, 5, 20, 254, 255, 256, 300, 1000});
        while (text.size() < length)
            text += pieces.at(random.bounded(int(pieces.size())));
        return Chance(2) ? text : text.left(length);
    }

    QDateTime Time()
    {
        const qint64 seconds = OneOf<qint64>({-1, 0, 1, 1715934600, 4294967295});
        return seconds < 0 ? QDateTime() : QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    }

    EN_ZYN_RESULT Verdict()
    {
        return OneOf({ZYN_RESULT_ABORTED, ZYN_RESULT_ERROR, ZYN_RESULT_FAILED, ZYN_RESULT_NOT_TESTED,
                      ZYN_RESULT_PASSED, ZYN_RESULT_DONE});
    }

    double Real()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        return OneOf({0.0, -0.0, 1.0, 0.0123, -4.7e3, 1e-300, 1e300, -1e38, 5e-324, 3.4028235e38, infinity,
                      -infinity, std::nan(""), random.generateDouble()});
    }

    MeasurementData Measurement()
    {
        MeasurementData measurement;
        measurement.ident = QString::number(random.bounded(100));
        measurement.name = Text();
        measurement.kind = OneOf({ZYN_ADDRESS_INTEGER, ZYN_ADDRESS_REAL, ZYN_ADDRESS_STRING});
        measurement.result = Verdict();
        measurement.hasResult = !Chance(8);
        const bool integer = measurement.kind == ZYN_ADDRESS_INTEGER;
        if (!Chance(8)) {
            measurement.value = measurement.kind == ZYN_ADDRESS_STRING ? QVariant(Text())
                                : integer ? QVariant(OneOf({0, 1, -7, 2147483647, -2147483647 - 1}))
                                          : QVariant(Real());
        }
        if (!Chance(4)) {
            LimitsData limits;
            limits.real = !integer;
            limits.lowerOperator = OneOf<QString>({"", "<=", "<", "==", "!=", ">="});
            limits.upperOperator = OneOf<QString>({"", "<=", "<", "==", "!=", ">"});
            limits.lower = integer ? random.bounded(100) : Finite();
            limits.upper = integer ? random.bounded(100) : Finite();
            limits.scale = random.bounded(25) - 12;
            limits.unit = random.bounded(25);
            measurement.limits = limits;
        }
        return measurement;
    }

    double Finite()
    {
        const double value = Real();
        return std::isfinite(value) ? value : 2.5;
    }

    UnitData Part()
    {
        UnitData unit;
        unit.ident = Text();
        unit.result = Verdict();
        unit.seconds = OneOf({0.0, 0.0004, 12.3456, 4294967.295, 5000000.0});
        unit.hasResultSet = !Chance(8);
        for (int groups = unit.hasResultSet ? random.bounded(3) : 0; groups > 0; --groups) {
            GroupData group{Text(), {}};
            for (int steps = random.bounded(4); steps > 0; --steps) {
                StepData step{Text(), {}};
                for (int measurements = random.bounded(5); measurements > 0; --measurements) {
                    step.measurements.append(Measurement());
                    if (Chance(4))
                        step.measurements.back().name = step.name;
                }
                group.steps.append(step);
            }
            unit.groups.append(group);
        }
        return unit;
    }

    QRandomGenerator random;
};

} // namespace

class StdfFieldsTest : public QObject {
    Q_OBJECT

private slots:
    void RandomUnits_data()
    {
        const Rows<quint32> row;
        for (quint32 seed = 1; seed <= 300; ++seed)
            row(QByteArray::number(seed), seed);
    }
    void RandomUnits()
    {
        const auto [seed] = CurrentRow<quint32>();
        const UnitData unit = Units(seed).Any();
        const auto contents = Export(unit);
        // Without a program there is no header: nothing but counts.
        const bool program = unit.hasResultSet || std::ranges::any_of(unit.items, &UnitData::hasResultSet);
        QStringList actual;
        for (const Stdf::Record& record : contents.records)
            actual += Fields(record);
        QCOMPARE(actual.join('\n'), ExpectedFile(unit).mid(program ? 0 : 2).join('\n'));
        if (program)
            QVERIFY2(contents.findings.isEmpty(), qPrintable(contents.Faults()));
    }

    void ScaledMeasurement()
    {
        // 12.3 mV between 1 mV and 500 mV.
        const auto test = Export(SimpleUnit("SN1", 1)).Of("PTR").value(0);
        QCOMPARE(test.Value("RESULT").toFloat(), 12.3F);
        QCOMPARE(test.Value("LO_LIMIT").toFloat(), 1.0F);
        QCOMPARE(test.Value("HI_LIMIT").toFloat(), 500.0F);
        QCOMPARE(test.Value("RES_SCAL").toInt(), 3);
        QCOMPARE(test.Text("UNITS"), "V");
        QCOMPARE(test.Text("TEST_TXT"), "[1] Rail 1 - Supply - Power");
        QCOMPARE(test.Number("OPT_FLAG"), 12U);
    }

private:
    LotFiles::Contents Export(const UnitData& unit)
    {
        const QString lot = folder.filePath(QString("%1.stdf").arg(++files));
        return Append(unit, lot) ? LotFiles::Read(lot) : LotFiles::Contents();
    }

    QTemporaryDir folder;
    int files = 0;
};

QTEST_GUILESS_MAIN(StdfFieldsTest)
#include "StdfFieldsTest.moc"
