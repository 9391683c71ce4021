#include "ReportFiles.h"
#include "support/Golden.h"
#include "support/SampleModels.h"
#include "support/SampleProgram.h"
#include "support/Test.h"

#include "export/Environment.h"

#include <examples/line_simulator/Line.h>

#include <cmath>
#include <limits>

using namespace ZYN;
using namespace Qt::StringLiterals;

using SampleModels::IntegerLimits;
using SampleModels::Limits;
using SampleModels::ProgramWriter;
using SampleModels::RealLimits;
using SampleModels::RunWriter;
using SampleModels::TextLimit;

namespace {

QList<double> UnusualNumbers()
{
    using Real = std::numeric_limits<double>;
    QList<double> numbers{0.1 + 0.2, 1.0 / 3.0, Real::min(), Real::max(), -Real::max()};
    for (const char* text : {"0", "-0", "1", "-1.5", "0.1", "1e-7", "123456789.12345679", "1e15", "1e16",
                             "9007199254740993", "6.02214076e23", "5e-324", "inf", "-inf", "nan"})
        numbers.append(QByteArray(text).toDouble());
    return numbers;
}

void WriteNumbers(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Group(10, "numbers", EN_ZYN_GROUP(7)), 0.001);
    long id = 0;
    for (int factor = -12; factor <= 12; ++factor) {
        run.Verdict(writer.Step(11, QString("factor %1").arg(factor)), 1e-9);
        for (const double number : UnusualNumbers()) {
            const auto limits =
                RealLimits(MeasurementUnit::Volt, -std::abs(number), number, factor, "<", ">=");
            if (std::isfinite(number))
                limits->SetProperty("Nominal", number / 7);
            limits->SetResultInverted(id % 3 == 0);
            run.Value(writer.Measurement(++id, "real", ZYN_ADDRESS_REAL, limits), number, number);
        }
        run.Value(writer.Measurement(++id, "single", ZYN_ADDRESS_REAL, RealLimits(1, 0, 1, factor)), 0.1F);
    }
    run.Verdict(writer.Step(12, "unknown"), 1.0)->SetResult(EN_ZYN_RESULT(-42));
    run.Value(writer.Measurement(1, "unit", ZYN_ADDRESS_REAL, RealLimits(99, 0, 1)), 0.5)
        ->SetResult(EN_ZYN_RESULT(77));
    run.Value(writer.Measurement(2, "integer as real", ZYN_ADDRESS_REAL, RealLimits(1, 0, 1)),
              9007199254740993LL);
    run.Value(writer.Measurement(3, "not measured, real", ZYN_ADDRESS_REAL, RealLimits(1, 0, 1, -3)),
              QVariant());
    run.Value(writer.Measurement(4, "without limits", ZYN_ADDRESS_REAL), 0.25);
}

void WritePatterns(ProgramWriter& writer, RunWriter& run)
{
    const auto integer = [&](long id, const QString& name, const Limits& limits, const QVariant& value) {
        run.Value(writer.Measurement(id, name, ZYN_ADDRESS_INTEGER, limits), value);
    };
    const auto real = [&](long id, const QString& name, const Limits& limits, const QVariant& value) {
        run.Value(writer.Measurement(id, name, ZYN_ADDRESS_REAL, limits), value);
    };
    using Integer = std::numeric_limits<qlonglong>;
    const QList<QVariant> patterns{
        0, 255, -1, Integer::min(), Integer::max(), std::numeric_limits<qulonglong>::max()};
    run.Verdict(writer.Step(20, "patterns"), 1.0);
    for (const QVariant& pattern : patterns) {
        for (const int unit : {MeasurementUnit::Hexadecimal, MeasurementUnit::Binary}) {
            integer(1, "digits", IntegerLimits(unit, -1, 0x10), pattern);
            const Limits limits = RealLimits(unit, 16, 255, 3);
            limits->SetProperty("Nominal", 170.0);
            real(2, "real", limits, pattern.toInt());
        }
        integer(3, "decimal", IntegerLimits(0, -7, 7), pattern);
    }
    real(4, "no digits", RealLimits(MeasurementUnit::Hexadecimal, 0, 1), 2.5);
    integer(5, "not whole", IntegerLimits(0, 0, 7), 2.5);
    integer(6, "not measured, hex", IntegerLimits(MeasurementUnit::Hexadecimal, 0, 7), QVariant());
    const Limits prefix = IntegerLimits(MeasurementUnit::Ohm, -2000000, 2000000);
    prefix->SetProperty("ScaleFactor", 3);
    integer(7, "integer with prefix", prefix, 9007199254740993LL);
    const Limits wide = IntegerLimits(0, 0, 0);
    wide->SetProperty("Upper", 1LL << 40);
    integer(8, "integer limits of 64 bits", wide, 1);
    integer(9, "integer with real limits", RealLimits(0, 0.5, 9.5), 1);
    const Limits digits(TestComponentFactory::CreateValidationString(MeasurementUnit::Hexadecimal, "==", "zz",
                                                                     -1, -1, -1, -1));
    run.Value(writer.Measurement(10, "text in digits", ZYN_ADDRESS_STRING, digits), "zz");
}

/// A measurement without limits takes those of the one before.
void WriteBorrowedLimits(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Step(25, "borrowed limits"), 1.0);
    run.Value(writer.Measurement(1, "not whole", ZYN_ADDRESS_REAL, RealLimits(1, 0.5, 9.5)), 1.25);
    run.Value(writer.Measurement(2, "integer without limits", ZYN_ADDRESS_INTEGER), 7);
    run.Value(writer.Measurement(3, "text limit", ZYN_ADDRESS_STRING, TextLimit("x")), "x");
    run.Value(writer.Measurement(4, "newer type without limits", EN_ZYN_ADDRESS(50)), QVariant());
    run.Value(writer.Measurement(5, "digits", ZYN_ADDRESS_INTEGER,
                                 IntegerLimits(MeasurementUnit::Hexadecimal, 0, 7)),
              5);
    run.Value(writer.Measurement(6, "text without limits", ZYN_ADDRESS_STRING), "V1.2");
}

void WriteTexts(ProgramWriter& writer, RunWriter& run)
{
    run.Verdict(writer.Step(30, "texts"), 1.0);
    for (const QString text : {"", " ", " a  b ", "a\n\tb\n", "<&>\"']]>", "\u03a9 \U0001f600"})
        run.Value(writer.Measurement(1, "text" + text, ZYN_ADDRESS_STRING, TextLimit(text)), text)
            ->SetComment(" two \n words ");
    run.Value(writer.Measurement(2, "carriage return", ZYN_ADDRESS_STRING, TextLimit("x")), "a\rb");
}

void WriteLostThings(ProgramWriter& writer, RunWriter& run)
{
    const auto group = writer.Group(40, "not numeric", ZYN_GROUP_CLEANUP);
    group->SetIdentString("GRP-A");
    run.Verdict(group, 1.0);
    run.Value(writer.Parameter(41, "parameter", ZYN_ADDRESS_INTEGER), 7);
    const auto disabled = writer.Step(42, "disabled");
    disabled->GetEnableCtrl()->EnableOff();
    run.Verdict(disabled, 0.0)->SetResult(ZYN_RESULT_FAILED);
    const auto hidden = writer.Step(43, "hidden");
    hidden->GetLogInReportCtrl()->LogInReportOff();
    run.Verdict(hidden, 0.0)->SetResult(ZYN_RESULT_FAILED);
    const auto notMarked = writer.Step(44, "not marked");
    notMarked->SetLogInReportCtrl(nullptr);
    run.Verdict(notMarked, 0.0);
    for (const QString ident : {"007", "+5"}) {
        const auto step = writer.Step(45, ident);
        step->SetIdentString(ident);
        run.Verdict(step, 0.0);
    }
    const auto newer = writer.Step(46, "newer type");
    newer->type = EN_ZYN_ADDRESS(50);
    newer->sourceLine = 3000000000U;
    run.Verdict(newer, 0.0);
    run.Verdict(writer.Step(47, "with unit"), 0.0)->SetValidation(RealLimits(MeasurementUnit::Volt, 0, 1));
}

/// A panel with every header item and a result set that says everything a report can say.
QSharedPointer<UUTTest> RichTest()
{
    ProgramWriter writer(1, "rich");
    const QSharedPointer<Station> station(new Station(0, "unnamed"));
    station->SetDescription("has no id");
    RunWriter run(writer.program, station, 0);
    writer.program->SetFileVersion("9");
    writer.program->sourceLine = 12;
    run.Verdict(writer.program, 0.1 + 0.2)->SetAttribute(" a  b ");
    WriteNumbers(writer, run);
    WritePatterns(writer, run);
    WriteBorrowedLimits(writer, run);
    WriteTexts(writer, run);
    WriteLostThings(writer, run);
    const auto panel = SampleModels::Panel();
    panel->AssignResultSet(run.Take());
    panel->SetResult(EN_ZYN_RESULT(1234));
    panel->SetResultDescription(" two\nlines ");
    return panel;
}

struct Reports {
    QByteArray first, second, third, fourth;
};

Reports WriteGenerations(UUTTest& test)
{
    const auto write = [](UUTTest& model, const char* engine) {
        const Environment::Override environment(SampleModels::ReportTime(), engine);
        return ReportFiles::Write(model);
    };
    Reports reports{write(test, "1.0"), {}, {}, {}};
    reports.second = write(*ReportFiles::Read(reports.first).test, "2.0");
    reports.third = write(*ReportFiles::Read(reports.second).test, "2.0");
    reports.fourth = write(*ReportFiles::Read(reports.third).test, "2.0");
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

/// Reports that are read and written again, and again. What the second generation says otherwise than the
/// first, and the third than the second, is in tests/golden; the list of it is in docs/formats.md.
class RoundTripTest : public QObject {
    Q_OBJECT
private:
    QTemporaryDir folder;

    QByteArray Changes(const QByteArray& before, const QByteArray& after) const
    {
        return Program::Run("diff", {"--text", Files::Write(folder.filePath("before"), before),
                                     Files::Write(folder.filePath("after"), after)})
            .output;
    }

private slots:
    void Generations_data()
    {
        const Rows<> row;
        for (const QString& name : SampleModels::ReportCaseNames())
            row(qPrintable(name));
        for (const char* name : {"rich", "simulated 1"})
            row(name);
    }
    void Generations()
    {
        const QString name = QTest::currentDataTag();
        const Reports reports = WriteGenerations(*MakeTest(name));
        QVERIFY(!reports.first.isEmpty());
        const QByteArray changes = "second generation\n" + Changes(reports.first, reports.second) +
                                   "third generation\n" + Changes(reports.second, reports.third);
        QCOMPARE(Golden::Difference(QString(name).replace(u' ', u'-'), "generations.txt", changes),
                 QString());
        QCOMPARE(reports.fourth, reports.third);
    }
};

QTEST_GUILESS_MAIN(RoundTripTest)
#include "RoundTripTest.moc"
