#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"
#include "support/SampleProgram.h"
#include "support/Test.h"

#include <ZYNPersistence/CExportServiceReport.h>

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

/// The PTR of a measurement, field by field, from the model.
QString ExpectedTest(uint number, const TestResult* test, const QString& step, const QString& group)
{
    float result = 0.0F;
    float low = 0.0F;
    float high = 0.0F;
    uint testFlags = 2;
    uint parameterFlags = 0;
    uint optional = 0x01 | 0x04 | 0x08 | 0x40 | 0x80;
    int scale = 0;
    QString unit;
    const auto measurement = test->GetComponent();
    const bool numeric = measurement->type == ZYN_ADDRESS_INTEGER || measurement->type == ZYN_ADDRESS_REAL;
    if (const auto limits = test->GetValidation()) {
        scale = limits->GetValueDisplay()->GetScaleFactor();
        unit = limits->GetMeasurementUnit().ToAsciiString();
        const auto factor = static_cast<float>(std::pow(0.1, scale));
        const auto scaled = [&](const QVariant& value) {
            return numeric ? static_cast<float>(value.toDouble()) * factor : 0.0F;
        };
        const bool prefixExists = scale % 3 == 0;
        if (prefixExists)
            optional &= ~1U;
        if (!test->GetValue().isNull()) {
            testFlags = 0;
            result = scaled(test->GetValue());
        }
        if (const QString op = limits->GetLowerOperator().ToString(); !op.isEmpty()) {
            optional &= ~0x40U;
            low = scaled(limits->GetLowerLimit());
            parameterFlags |= Holds(low, result, op) ? 0U : 0x10U;
        }
        if (const QString op = limits->GetUpperOperator().ToString(); !op.isEmpty()) {
            optional &= ~0x80U;
            high = scaled(limits->GetUpperLimit());
            parameterFlags |= Holds(result, high, op) ? 0U : 0x08U;
        }
    }
    const QMap<EN_ZYN_RESULT, uint> verdicts{{ZYN_RESULT_ERROR, 0x20},
                                             {ZYN_RESULT_ABORTED, 0x20},
                                             {ZYN_RESULT_DONE, 0x40},
                                             {ZYN_RESULT_FAILED, 0x80}};
    testFlags |= verdicts.value(test->GetResult());

    QString text = '[' + measurement->GetIdentString() + "] " + measurement->GetName() + " - ";
    if (measurement->GetName() != step)
        text += step + " - ";
    const QString exponent = QString::number(-scale);
    return Joined("PTR", number, 1, 1, testFlags, parameterFlags, Bits(result), Encoded(text + group), "",
                  optional, exponent, exponent, exponent, Bits(low), Bits(high), unit);
}

/// The records of a part, from its data and the results that it was given.
QStringList ExpectedPart(const UnitData& unit, const UUTTest* test, const UnitData& whole)
{
    QStringList records;
    uint number = 0;
    for (const TestResultSet* const set : test->GetResultSets())
        for (const TestComponent* const group : set->GetTestProgram()->GetChildren())
            for (const TestComponent* const step : group->GetChildren())
                for (const TestComponent* const measurement : step->GetChildren())
                    if (const TestResult* const result = set->GetResult(measurement))
                        records += ExpectedTest(++number, result, step->GetName(), group->GetName());
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

QStringList ExpectedFile(const UnitData& unit, const UUTTest* test)
{
    const QString start = Seconds(unit.start);
    QStringList records{"FAR|2|4",
                        Joined("MIR", start, start, 1, "P", " ", " ", 65535, " ", Encoded(unit.lot),
                               Encoded(unit.product), Encoded(unit.machine), "", Encoded(unit.program),
                               Encoded(unit.version), "", Encoded(unit.user))};
    uint parts = 0;
    uint good = 0;
    QString finish = Seconds(unit.stop);
    for (int index = -1; index < unit.items.size(); ++index) {
        const UnitData& part = index < 0 ? unit : unit.items.at(index);
        const QStringList partRecords =
            ExpectedPart(part, index < 0 ? test : test->GetUUTTests().at(index).get(), unit);
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

    /// \return whether the unit got results
    bool AddRun(const UnitData& unit, UUTTest* test)
    {
        if (Chance(8))
            return false;
        SampleModels::ProgramWriter writer(1, unit.program);
        SampleModels::RunWriter run(writer.program, nullptr, 0);
        writer.program->SetVersion(unit.version);
        run.Verdict(writer.program, 0.0)->SetResult(unit.result);
        for (int groups = random.bounded(3); groups > 0; --groups) {
            writer.Group(1, Text());
            for (int steps = random.bounded(4); steps > 0; --steps) {
                const QString step = Text();
                writer.Step(2, step);
                for (int measurements = random.bounded(5); measurements > 0; --measurements)
                    AddMeasurement(Chance(4) ? step : Text(), writer, run);
            }
        }
        test->AssignResultSet(run.Take());
        return true;
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

    double Finite()
    {
        const double value = Real();
        return std::isfinite(value) ? value : 2.5;
    }

    SampleModels::Limits Limits(bool integer)
    {
        const char* const lower = OneOf({"", "<=", "<", "==", "!=", ">="});
        const char* const upper = OneOf({"", "<=", "<", "==", "!=", ">"});
        const int unit = random.bounded(25);
        if (!integer)
            return SampleModels::RealLimits(unit, Finite(), Finite(), random.bounded(25) - 12, lower, upper);
        return SampleModels::Limits(TestComponentFactory::CreateValidationInt(
            unit, lower, upper, random.bounded(100), random.bounded(100), -1, -1, -1, -1, -1, -1));
    }

    void AddMeasurement(const QString& name, SampleModels::ProgramWriter& writer,
                        SampleModels::RunWriter& run)
    {
        const auto type = OneOf({ZYN_ADDRESS_INTEGER, ZYN_ADDRESS_REAL, ZYN_ADDRESS_STRING});
        const bool integer = type == ZYN_ADDRESS_INTEGER;
        const auto limits = Chance(4) ? SampleModels::Limits() : Limits(integer);
        const auto measurement = writer.Measurement(random.bounded(100), name, type, limits);
        const QVariant value = Chance(8) ? OneOf({QVariant(), QVariant(QMetaType(QMetaType::Double))})
                               : type == ZYN_ADDRESS_STRING ? QVariant(Text())
                               : integer ? QVariant(OneOf({0, 1, -7, 2147483647, -2147483647 - 1}))
                                         : QVariant(Real());
        if (!Chance(8))
            run.Value(measurement, value)->SetResult(Verdict());
    }

    UnitData Part()
    {
        UnitData unit;
        unit.ident = Text();
        unit.result = Verdict();
        unit.seconds = OneOf({0.0, 0.0004, 12.3456, 4294967.295, 5000000.0});
        unit.hasResultSet = false; // it gets one of its own
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
        Units units(seed);
        const UnitData unit = units.Any();
        const auto test = MakeTest(unit);
        bool program = units.AddRun(unit, test.get());
        for (const auto& item : test->GetUUTTests())
            program |= units.AddRun(unit, item.get());
        CExportServiceReport service;
        service.SetFormat("STDF");
        service.SetOutputFileName(folder.filePath(QString("%1.stdf").arg(seed)));
        QVERIFY(service.Export(test.get()) && service.OutputComplete());
        const auto contents = LotFiles::Read(folder.filePath(QString("%1.stdf").arg(seed)));
        QStringList actual;
        for (const Stdf::Record& record : contents.records)
            actual += Fields(record);
        // Without a program there is no header: nothing but counts.
        QCOMPARE(actual.join('\n'), ExpectedFile(unit, test.get()).mid(program ? 0 : 2).join('\n'));
        if (program)
            QVERIFY2(contents.Faults().isEmpty(), qPrintable(contents.Faults()));
    }

private:
    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(StdfFieldsTest)
#include "StdfFieldsTest.moc"
