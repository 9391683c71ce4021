/// Mean, sigma, capability: against certified figures, and what is left out of them.

#include "support/SampleProgram.h"
#include "support/Test.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace ZYN;

namespace {

using Values = QList<double>;
using SampleModels::Limits;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

Limits Real(const char* lowerOp, double lower, const char* upperOp, double upper, int factor = 0)
{
    return SampleModels::RealLimits(MeasurementUnit::Volt, lower, upper, factor, lowerOp, upperOp);
}

/// `first`, then `low` and `high` in turn, 1001 values in all: the pattern of the reference sets NumAcc2
/// to 4.
Values Alternating(double first, double low, double high)
{
    Values values{first};
    for (int i = 0; i < 500; ++i)
        values << low << high;
    return values;
}

/// A. A. Michelson's 100 measurements of the speed of light of 1879, in 1000 km/s.
Values SpeedOfLight()
{
    constexpr int beyond299[] = {
        850,  740, 900, 1070, 930, 850, 950, 980, 980, 880, 1000, 980, 930, 650, 760, 810, 1000,
        1000, 960, 960, 960,  940, 960, 940, 880, 800, 850, 880,  900, 840, 830, 790, 810, 880,
        880,  830, 800, 790,  760, 800, 880, 880, 880, 860, 720,  720, 620, 860, 970, 950, 880,
        910,  850, 870, 840,  840, 850, 840, 840, 840, 890, 810,  810, 820, 800, 770, 760, 740,
        750,  760, 910, 920,  890, 860, 880, 720, 840, 850, 850,  780, 890, 840, 780, 810, 760,
        810,  790, 810, 820,  850, 870, 870, 810, 740, 810, 940,  950, 800, 810, 870};
    Values values;
    for (const int thousandth : beyond299)
        values << (299000 + thousandth) / 1000.0;
    return values;
}

double CorrectDigits(double figure, double certified)
{
    return figure == certified ? 15.0 : -std::log10(std::abs(figure - certified) / std::abs(certified));
}

void Add(StatisticsData& data, const QVariant& value, const Limits& limits = Limits())
{
    data.AddValue(ZYN_RESULT_DONE, value, limits);
}

QString Texts(const StatisticsData& data, bool scaled)
{
    StatisticsDataDecoration texts(&data);
    texts.SetUseScaledData(scaled);
    return QStringList{texts.GetMin(), texts.GetMax(),        texts.GetAverage(),    texts.GetSigma(),
                       texts.GetCPK(), texts.GetLowerLimit(), texts.GetUpperLimit(), texts.GetUnitString()}
        .join(QLatin1Char('|'));
}

} // namespace

class StatisticsFiguresTest : public QObject {
    Q_OBJECT
private slots:
    // NIST Statistical Reference Datasets, univariate summary statistics: values and certified figures.
    // Binary numbers cannot hold the decimal values exactly; `held` is the sigma of what they do hold,
    // computed with rational numbers, so the one figure tells about the method and the other about the whole.
    void CertifiedFigures_data()
    {
        const Rows<Values, double, double, double, double> row;
        row("Michelso", SpeedOfLight(), 299.8524, 0.0790105478190518, 0.0790105478190506671, 13.0);
        row("NumAcc1", Values{10000001, 10000003, 10000002}, 10000002.0, 1.0, 1.0, 15.0);
        row("NumAcc2", Alternating(1.2, 1.1, 1.3), 1.2, 0.1, 0.09999999999999998, 15.0);
        row("NumAcc3", Alternating(1000000.2, 1000000.1, 1000000.3), 1000000.2, 0.1, 0.1000000000349245965,
            9.4);
        row("NumAcc4", Alternating(10000000.2, 10000000.1, 10000000.3), 10000000.2, 0.1,
            0.1000000005587935448, 8.2);
    }
    void CertifiedFigures()
    {
        const auto [values, mean, sigma, held, digits] = CurrentRow<Values, double, double, double, double>();
        StatisticsData data(nullptr);
        for (const double value : values)
            Add(data, value);
        QVERIFY(CorrectDigits(data.GetMean(), mean) >= 15.0);
        QVERIFY(CorrectDigits(data.GetSigma(), sigma) >= digits);
        QVERIFY(CorrectDigits(data.GetSigma(), held) >= 13.0);
    }

    void WhatIsCountedButNotAveraged()
    {
        StatisticsData data(nullptr);
        QVERIFY(!data.HasStatisticDetails());
        for (const QVariant& value : {QVariant(NaN), QVariant(Infinity), QVariant(-Infinity), QVariant(true),
                                      QVariant("12"), QVariant()})
            data.AddValue(ZYN_RESULT_FAILED, value, nullptr);
        QVERIFY(!data.HasStatisticDetails());
        QCOMPARE(data.Size(), 6);
        QCOMPARE(data.GetNrFail(), 6);
        QCOMPARE(Texts(data, true), "|||||||");

        for (const int code : {1, 6, 0, 2, -5})
            data.AddValue(static_cast<EN_ZYN_RESULT>(code), 4, nullptr);
        QCOMPARE(data.GetNrPass(), 1);
        QCOMPARE(data.GetNrFail(), 7);
        QCOMPARE(data.GetValueCount(), 5);
        QCOMPARE(data.GetMean(), 4.0);
        QCOMPARE(data.GetSigma(), 0.0);
    }

    void HugeValues()
    {
        constexpr double largest = std::numeric_limits<double>::max();
        StatisticsData data(nullptr);
        for (const double value : {largest, -largest, largest, -largest})
            Add(data, value);
        QCOMPARE(data.GetMean(), 0.0);
        QCOMPARE(data.GetMaximum(), largest);

        StatisticsData integers(nullptr); // an offset that no double could hold together with the spread
        for (const qlonglong value : {1ll, 2ll, 3ll})
            Add(integers, value + 1000000000000000ll);
        QCOMPARE(integers.GetSigma(), 1.0);
    }

    void Capability_data()
    {
        const Rows<Limits, Values, double> row;
        const Values values{9, 10, 11}; // mean 10, sigma 1
        row("upper is nearer", Real("<=", 1, "<=", 13), values, 1.0);
        row("lower is nearer", Real("<", 8.5, "<", 13), values, 0.5);
        row("only upper", Real("", 0, "<=", 16), values, 2.0);
        row("outside the limits", Real("<=", 1, "<=", 7), values, -1.0);
        row("integers", SampleModels::IntegerLimits(0, 7, 100), values, 1.0);
        row("no limits", Limits(), values, NaN);
        row("limits that are no bounds", Real("==", 10, "!=", 11), values, NaN);
        row("infinite limit", Real("<=", 7, "<=", Infinity), values, 1.0);
        row("sigma 0", Real("<=", 1, "<=", 13), Values{10, 10}, NaN);
        row("one value", Real("<=", 1, "<=", 13), Values{10}, NaN);
        row("no value", Real("<=", 1, "<=", 13), Values{}, NaN);
        const Limits inverted = Real("<=", 1, "<=", 13);
        inverted->SetResultInverted(true);
        row("inverted", inverted, values, NaN);
        row("text", SampleModels::TextLimit("9"), values, NaN);
    }
    void Capability()
    {
        const auto [limits, values, cpk] = CurrentRow<Limits, Values, double>();
        StatisticsData data(nullptr);
        for (const double value : values)
            Add(data, value, limits);
        QCOMPARE(data.GetCpk(), cpk);
    }

    void LimitsThatChange()
    {
        StatisticsData data(nullptr);
        Add(data, 9.0, Real("<=", 1, "<=", 11));
        Add(data, 10.0, Real("<=", 1, "<=", 11));
        Add(data, 11.0);
        QVERIFY(!data.HaveLimitsChanged());
        const double before = data.GetCpk();
        Add(data, 10.0, Real("<=", 1, "<=", 13));
        QVERIFY(data.HaveLimitsChanged());
        QVERIFY(data.GetCpk() > before);
        QCOMPARE(data.GetValidation()->GetUpperLimit().toDouble(), 13.0);

        StatisticsData sharper(nullptr);
        Add(sharper, 1.0, Real("<=", 1, "<=", 2));
        Add(sharper, 1.0, Real("<", 1, "<=", 2));
        QVERIFY(sharper.HaveLimitsChanged());
    }

    void ResultsOnDemand()
    {
        const auto measurement =
            QSharedPointer<TestMeasurement>::create(1, QString(), ZYN_ADDRESS_INTEGER, nullptr, 0u, -1);
        StatisticsData data(measurement);
        const QList<QVariant> values{QVariant(0.1),
                                     QVariant(std::numeric_limits<qlonglong>::min()),
                                     QVariant(std::numeric_limits<qulonglong>::max()),
                                     QVariant("v1"),
                                     QVariant(),
                                     QVariant(-Infinity)};
        for (const QVariant& value : values)
            data.AddValue(ZYN_RESULT_FAILED, value,
                          SampleModels::IntegerLimits(MeasurementUnit::Hexadecimal, 0, 255));
        for (int i = 0; i < values.size(); ++i) {
            QCOMPARE(data.GetResult(i)->GetValue(), values.at(i));
            QCOMPARE(data.GetResult(i)->GetResult(), ZYN_RESULT_FAILED);
        }
        QCOMPARE(data.GetResult(2)->GetValueString(nullptr), "ffffffffffffffff");
        QCOMPARE(data.GetResult(-1), nullptr);
        QCOMPARE(data.GetResult(int(values.size())), nullptr);
    }

    void ShownTexts_data()
    {
        const Rows<Limits, Values, bool, QString> row;
        const Values millivolts{0.0031, 0.0033, 0.0034};
        row("plain", Real("<=", 0.003, "<=", 0.0036, -3), millivolts, false,
            "0.0031|0.0034|0.003266667|0.000152753|0.581914|0.003|0.0036|V");
        row("large with a small spread", Limits(), Values{1e9, 1e9 + 0.25, 1e9 + 0.5}, false,
            "1000000000|1000000000.5|1000000000.25|0.25||||");
        row("status words", SampleModels::IntegerLimits(MeasurementUnit::Hexadecimal, 0, 255),
            Values{16, 255, 17}, true, "10|ff|96|137.699|0.232391|0|ff|hex");
        row("one value", Real("<=", -3, "<=", 3), Values{-2.5}, false, "-2.5|-2.5|-2.5|||-3|3|V");
    }
    void ShownTexts()
    {
        const auto [limits, values, scaled, texts] = CurrentRow<Limits, Values, bool, QString>();
        StatisticsData data(nullptr);
        for (const double value : values)
            Add(data, value, limits);
        QCOMPARE(Texts(data, scaled), texts);
    }
};

QTEST_APPLESS_MAIN(StatisticsFiguresTest)
#include "StatisticsFiguresTest.moc"
