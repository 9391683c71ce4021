#include "ReportFiles.h"
#include "support/SampleModels.h"
#include "support/SampleProgram.h"

#include "export/Environment.h"

#include <examples/line_simulator/Line.h>

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/UnitUnderTest.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>
#include <QtTest/QtTest>

#include <cmath>
#include <limits>

using namespace ZYN;
using namespace Qt::StringLiterals;

using SampleModels::IntegerLimits;
using SampleModels::ProgramWriter;
using SampleModels::RealLimits;
using SampleModels::RunWriter;
using SampleModels::TextLimit;

namespace {

/// A report as one line for each thing it says: "path/to/element: attribute=value" and
/// "path/to/property=text". Components show their name in the path, measurements also their number.
QStringList Statements(const QByteArray& document)
{
    QStringList lines;
    QStringList path;
    int measurements = 0;
    QXmlStreamReader reader(document);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isEndElement())
            path.removeLast();
        if (!reader.isStartElement())
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const QString name = attributes.value("Name"_L1).toString();
        const bool isProperty = reader.name() == "Property"_L1;
        QString element = reader.name().toString();
        if (element == "TestMeasurement"_L1)
            element += u'#' + QString::number(++measurements);
        if (!name.isEmpty())
            element += u'[' + name + u']';
        path.append(isProperty ? name : element);
        const QString place = path.join(u'/');
        for (const QXmlStreamAttribute& attribute : attributes)
            if (!isProperty || attribute.name() != "Name"_L1)
                lines.append(u"%1: %2=%3"_s.arg(place, attribute.name(), attribute.value()));
        if (isProperty) {
            lines.append(place + u'=' + reader.readElementText());
            path.removeLast();
        }
    }
    if (reader.hasError())
        lines.append(u"error: "_s + reader.errorString());
    return lines;
}

/// One thing that a report loses by being read and written again.
struct Loss {
    const char* name;
    /// The statements that it concerns. With a capture they say something else in the next generation, after
    /// what is captured; without one they are in one generation only.
    QRegularExpression statements;
};

/// The whole list. It is the one in docs/formats.md.
QList<Loss> Losses()
{
    const auto loss = [](const char* name, const QString& pattern) {
        return Loss{name, QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption)};
    };
    const QString measurement = u"/TestMeasurement#\\d+\\[%1\\]"_s;
    const QString anyMeasurement = measurement.arg(u"[^/]*"_s);
    return {
        loss("fixture", u"^TestReport/Fixture/"_s),
        loss("product type parameters", u"^TestReport/ProductType/Parameter: "_s),
        loss("test parameters", u"/TestParameter\\["_s),
        loss("version of the test engine", u"^(TestReport/TestEnvironment: KVAVersion)="_s),
        loss("failed groups as written", u"(/TestResultSet/FailedGroups)="_s),
        loss("failed steps as written", u"(/TestResultSet/FailedSteps)="_s),
        loss("version of the program file", u"(/Testprogram[^/]*/FileVersion)="_s),
        loss("ident that is no number", u"(\\](: ID|/Ident))=(0|.*[^0-9].*)\\z"_s),
        loss("scale prefix of integers",
             u'(' + measurement.arg(u"integer with prefix"_s) +
                 u"/(Limits/(Unit(: Factor)?|Lower|Upper)|Result/(Value|Unit)))="_s),
        loss("integer limits beyond 32 bits",
             u'(' + measurement.arg(u"integer limits of 64 bits"_s) + u"/Limits/Upper)="_s),
        loss("integer of a real measurement",
             u'(' + measurement.arg(u"integer as real"_s) + u"/Result/Value)="_s),
        loss("number that was not measured", u'(' + anyMeasurement + u"/Result/Value)=0?\\z"_s),
        loss("carriage return", u'(' + measurement.arg(u"carriage return"_s) + u"/Result/Value)="_s),
    };
}

/// The places of measurements without limits: these take the limits of the measurement before.
QStringList PlacesWithoutLimits(const QStringList& statements)
{
    static const QRegularExpression place(u"^.*/TestMeasurement#\\d+\\[[^/]*\\]/"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    QMap<QString, bool> hasLimits;
    for (const QString& line : statements)
        if (const QString found = place.match(line).captured(); !found.isEmpty())
            hasLimits[found] |= line.startsWith(found + u"Limits"_s);
    return hasLimits.keys(false);
}

/// What is left of a report when everything that is lost is taken away.
QStringList WithoutLosses(const QStringList& statements, const QStringList& withoutLimits)
{
    const QList<Loss> losses = Losses();
    QStringList kept;
    for (const QString& line : statements) {
        const bool isBorrowed =
            std::any_of(withoutLimits.begin(), withoutLimits.end(), [&](const QString& place) {
                return line.startsWith(place + u"Limits"_s) || line.startsWith(place + u"Result/Unit"_s);
            });
        if (isBorrowed)
            continue;
        QRegularExpressionMatch match;
        const auto loss = std::find_if(losses.begin(), losses.end(), [&](const Loss& candidate) {
            match = candidate.statements.match(line);
            return match.hasMatch();
        });
        if (loss == losses.end()) {
            kept.append(line);
            continue;
        }
        if (match.lastCapturedIndex() > 0)
            kept.append(match.captured(1) + u" is lost"_s);
    }
    return kept;
}

/// The first line in which two lists differ.
QString Difference(const QStringList& expected, const QStringList& actual)
{
    for (qsizetype i = 0; i < std::max(expected.size(), actual.size()); ++i) {
        const QString& left = i < expected.size() ? expected.at(i) : u"(end)"_s;
        const QString& right = i < actual.size() ? actual.at(i) : u"(end)"_s;
        if (left != right)
            return left + u"\n  became  "_s + right;
    }
    return {};
}

const QList<double> unusualNumbers{0.0,
                                   -0.0,
                                   1.0,
                                   -1.5,
                                   0.1,
                                   0.1 + 0.2,
                                   1.0 / 3.0,
                                   1e-7,
                                   123456789.12345679,
                                   1e15,
                                   1e16,
                                   9007199254740993.0,
                                   6.02214076e23,
                                   1.602176634e-19,
                                   std::numeric_limits<double>::min(),
                                   std::numeric_limits<double>::denorm_min(),
                                   std::numeric_limits<double>::max(),
                                   -std::numeric_limits<double>::max(),
                                   std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::quiet_NaN()};

void WriteNumbers(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Group(10, u"numbers"_s, EN_ZYN_GROUP(7)), 0.001);
    long id = 0;
    for (int factor = -12; factor <= 12; ++factor) {
        run.Verdict(writer.Step(11, u"factor %1"_s.arg(factor)), 1e-9);
        for (const double number : unusualNumbers) {
            const auto limits =
                RealLimits(MeasurementUnit::Volt, -std::abs(number), number, factor, "<", ">=");
            if (std::isfinite(number))
                limits->SetProperty(u"Nominal"_s, number / 7);
            limits->SetResultInverted(id % 3 == 0);
            run.Value(writer.Measurement(++id, u"real"_s, ZYN_ADDRESS_REAL, limits), number, number);
        }
        run.Value(writer.Measurement(++id, u"single"_s, ZYN_ADDRESS_REAL, RealLimits(1, 0, 1, factor)), 0.1F);
    }
    run.Verdict(writer.Step(12, u"unknown"_s), 1.0)->SetResult(EN_ZYN_RESULT(-42));
    run.Value(writer.Measurement(1, u"unit"_s, ZYN_ADDRESS_REAL, RealLimits(99, 0, 1)), 0.5)
        ->SetResult(EN_ZYN_RESULT(77));
    run.Value(writer.Measurement(2, u"integer as real"_s, ZYN_ADDRESS_REAL, RealLimits(1, 0, 1)),
              9007199254740993LL);
    run.Value(writer.Measurement(3, u"not measured, real"_s, ZYN_ADDRESS_REAL, RealLimits(1, 0, 1, -3)),
              QVariant());
    run.Value(writer.Measurement(4, u"without limits"_s, ZYN_ADDRESS_REAL), 0.25);
}

void WritePatterns(ProgramWriter& writer, RunWriter& run)
{
    const QList<QVariant> patterns{0,
                                   255,
                                   -1,
                                   std::numeric_limits<qlonglong>::min(),
                                   std::numeric_limits<qlonglong>::max(),
                                   std::numeric_limits<qulonglong>::max()};
    run.Verdict(writer.Step(20, u"patterns"_s), 1.0);
    for (const QVariant& pattern : patterns) {
        for (const int unit : {MeasurementUnit::Hexadecimal, MeasurementUnit::Binary}) {
            run.Value(writer.Measurement(1, u"digits"_s, ZYN_ADDRESS_INTEGER, IntegerLimits(unit, -1, 0x10)),
                      pattern);
            const auto limits = RealLimits(unit, 16, 255, 3);
            limits->SetProperty(u"Nominal"_s, 170.0);
            run.Value(writer.Measurement(2, u"real"_s, ZYN_ADDRESS_REAL, limits), pattern.toInt());
        }
        run.Value(writer.Measurement(3, u"decimal"_s, ZYN_ADDRESS_INTEGER, IntegerLimits(0, -7, 7)), pattern);
    }
    run.Value(writer.Measurement(4, u"no digits"_s, ZYN_ADDRESS_REAL,
                                 RealLimits(MeasurementUnit::Hexadecimal, 0, 1)),
              2.5);
    run.Value(writer.Measurement(5, u"not whole"_s, ZYN_ADDRESS_INTEGER, IntegerLimits(0, 0, 7)), 2.5);
    run.Value(writer.Measurement(6, u"not measured, hex"_s, ZYN_ADDRESS_INTEGER,
                                 IntegerLimits(MeasurementUnit::Hexadecimal, 0, 7)),
              QVariant());
    const auto prefix = IntegerLimits(MeasurementUnit::Ohm, -2000000, 2000000);
    prefix->SetProperty(u"ScaleFactor"_s, 3);
    run.Value(writer.Measurement(7, u"integer with prefix"_s, ZYN_ADDRESS_INTEGER, prefix),
              9007199254740993LL);
    const auto wide = IntegerLimits(0, 0, 0);
    wide->SetProperty(u"Upper"_s, 1LL << 40);
    run.Value(writer.Measurement(8, u"integer limits of 64 bits"_s, ZYN_ADDRESS_INTEGER, wide), 1);
}

/// A measurement without limits takes those of the one before as limits of its own type.
void WriteBorrowedLimits(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Step(25, u"borrowed limits"_s), 1.0);
    run.Value(writer.Measurement(1, u"not whole"_s, ZYN_ADDRESS_REAL, RealLimits(1, 0.5, 9.5)), 1.25);
    run.Value(writer.Measurement(2, u"integer without limits"_s, ZYN_ADDRESS_INTEGER), 7);
    run.Value(writer.Measurement(3, u"text limit"_s, ZYN_ADDRESS_STRING, TextLimit(u"x"_s)), u"x"_s);
    run.Value(writer.Measurement(4, u"newer type without limits"_s, EN_ZYN_ADDRESS(50)), QVariant());
    run.Value(writer.Measurement(5, u"digits"_s, ZYN_ADDRESS_INTEGER,
                                 IntegerLimits(MeasurementUnit::Hexadecimal, 0, 7)),
              5);
    run.Value(writer.Measurement(6, u"text without limits"_s, ZYN_ADDRESS_STRING), u"V1.2"_s);
}

void WriteTexts(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Step(30, u"texts"_s), 1.0);
    for (const QString& text :
         {u""_s, u" "_s, u" a  b "_s, u"a\n\tb\n"_s, u"<&>\"']]>"_s, u"\u03a9 \U0001f600"_s})
        run.Value(writer.Measurement(1, u"text"_s + text, ZYN_ADDRESS_STRING, TextLimit(text)), text)
            ->SetComment(u" two \n words "_s);
    run.Value(writer.Measurement(2, u"carriage return"_s, ZYN_ADDRESS_STRING, TextLimit(u"x"_s)), u"a\rb"_s);
}

void WriteLostThings(ProgramWriter& writer, RunWriter& run)
{
    const auto group = writer.Group(40, u"not numeric"_s, ZYN_GROUP_CLEANUP);
    group->SetIdentString(u"GRP-A"_s);
    run.Verdict(group, 1.0);
    run.Value(writer.Parameter(41, u"parameter"_s, ZYN_ADDRESS_INTEGER), 7);
    const auto disabled = writer.Step(42, u"disabled"_s);
    disabled->GetEnableCtrl()->EnableOff();
    run.Verdict(disabled, 0.0)->SetResult(ZYN_RESULT_FAILED);
    const auto hidden = writer.Step(43, u"hidden"_s);
    hidden->GetLogInReportCtrl()->LogInReportOff();
    run.Verdict(hidden, 0.0)->SetResult(ZYN_RESULT_FAILED);
}

/// A panel with every header item and a result set that says everything a report can say.
QSharedPointer<UUTTest> RichTest()
{
    ProgramWriter writer(1, u"rich"_s);
    const QSharedPointer<Station> station(new Station(0, u"unnamed"_s));
    station->SetDescription(u"has no id"_s);
    RunWriter run(writer.program, station, 0);
    writer.program->SetFileVersion(u"9"_s);
    run.Verdict(writer.program, 0.1 + 0.2)->SetAttribute(u" a  b "_s);
    WriteNumbers(writer, run);
    WritePatterns(writer, run);
    WriteBorrowedLimits(writer, run);
    WriteTexts(writer, run);
    WriteLostThings(writer, run);
    const auto panel = SampleModels::Panel();
    panel->AssignResultSet(run.Take());
    panel->SetResult(EN_ZYN_RESULT(1234));
    panel->SetResultDescription(u" two\nlines "_s);
    return panel;
}

struct Generations {
    QByteArray first;
    QByteArray second;
    QByteArray third;
};

Generations WriteGenerations(UUTTest& test)
{
    const QDateTime now = SampleModels::ReportTime();
    Generations reports;
    {
        const Environment::Override environment(now, u"1.0"_s);
        reports.first = ReportFiles::Write(test);
    }
    const Environment::Override environment(now, u"2.0"_s);
    reports.second = ReportFiles::Write(*ReportFiles::Read(reports.first).test);
    reports.third = ReportFiles::Write(*ReportFiles::Read(reports.second).test);
    return reports;
}

QSharedPointer<UUTTest> MakeTest(const QString& name)
{
    if (name == "rich"_L1)
        return RichTest();
    if (name.startsWith("simulated"_L1)) {
        const Simulation::Line line({.seed = 7, .itemsPerPanel = 2});
        return QSharedPointer<UUTTest>(line.MakePanel(name.last(1).toInt()).release());
    }
    const auto test = SampleModels::MakeReportCase(name)->test;
    // A parameter's key becomes an attribute's name, so one that is no name makes no XML.
    if (name == "hostile-names"_L1)
        test->GetUnitUnderTest()->GetProductType()->SetParameters({});
    return test;
}

} // namespace

class RoundTripTest : public QObject {
    Q_OBJECT
private slots:
    void generations_data();
    void generations();
    void everyLossIsMet();
    void numbersComeBackExactly();
};

void RoundTripTest::generations_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : SampleModels::ReportCaseNames())
        QTest::newRow(qPrintable(name)) << name;
    for (const char* name : {"rich", "simulated 1", "simulated 2", "simulated 3"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void RoundTripTest::generations()
{
    QFETCH(QString, name);
    const Generations reports = WriteGenerations(*MakeTest(name));
    QVERIFY(!reports.first.isEmpty());
    const QStringList first = Statements(reports.first);
    const QStringList second = Statements(reports.second);
    const QStringList withoutLimits = PlacesWithoutLimits(first);
    const QString difference =
        Difference(WithoutLosses(first, withoutLimits), WithoutLosses(second, withoutLimits));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
    // Nothing more is lost later, not even the spelling.
    const QString later = Difference(second, Statements(reports.third));
    QVERIFY2(later.isEmpty(), qPrintable(later));
    QCOMPARE(reports.third, reports.second);
}

void RoundTripTest::everyLossIsMet()
{
    // A loss that does not occur would hide one that does.
    const Generations reports = WriteGenerations(*RichTest());
    const QStringList first = Statements(reports.first);
    const QStringList second = Statements(reports.second);
    QVERIFY(!PlacesWithoutLimits(first).isEmpty());
    QVERIFY(PlacesWithoutLimits(second).isEmpty());
    for (const Loss& loss : Losses()) {
        const QStringList before = first.filter(loss.statements);
        QVERIFY2(!before.isEmpty(), loss.name);
        QVERIFY2(before != second.filter(loss.statements), loss.name);
    }
}

void RoundTripTest::numbersComeBackExactly()
{
    ProgramWriter writer(1, u"numbers"_s);
    RunWriter run(writer.program, nullptr, 1);
    run.Verdict(writer.program, 1.0);
    WriteNumbers(writer, run);
    UUTTest test(1, QString());
    test.AssignResultSet(run.Take());
    const auto reading = ReportFiles::Read(ReportFiles::Write(test));

    const auto read = reading.test->GetResultSets().first()->GetResults();
    const auto written = test.GetResultSets().first()->GetResults();
    QCOMPARE(read.size(), written.size());
    for (qsizetype i = 0; i < read.size(); ++i) {
        const double before = written.at(i)->GetDuration();
        const double after = read.at(i)->GetDuration();
        QVERIFY(std::isnan(before) ? std::isnan(after) : before == after);
        const QString name = written.at(i)->GetComponent()->GetName();
        if (name != "real"_L1)
            continue;
        const double number = written.at(i)->GetValue().toDouble();
        const double back = read.at(i)->GetValue().toDouble();
        QVERIFY(std::isnan(number) ? std::isnan(back) : number == back);
        QCOMPARE(std::signbit(back), std::signbit(number) && !std::isnan(number));
    }
}

QTEST_GUILESS_MAIN(RoundTripTest)
#include "RoundTripTest.moc"
