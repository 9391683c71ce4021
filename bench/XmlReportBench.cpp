// The XML report against a bare QXmlStreamWriter that writes the same elements, attributes and texts from
// constant strings, and its import against a bare QXmlStreamReader pass over the same bytes.

#include "Comparison.h"
#include "LoadModel.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderXML.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <vector>

using namespace ZYN;

namespace {

void Export(UUTTest* test, const QString& fileName)
{
    CReportBuilderXML builder;
    CExportDirectorReport director;
    if (!builder.OpenFile(fileName) || !director.ExportUUTTest(test, &builder))
        qFatal("no report");
}

/// One call of a stream writer, with its texts as constants.
struct Token {
    enum Kind { Start, Text, End } kind;
    QString text;
    std::vector<std::pair<QString, QString>> attributes;
};

/// The calls that write one step of ten measurements.
std::vector<Token> StepTokens(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no report to read");
    QXmlStreamReader reader(&file);
    while (!reader.atEnd() && !(reader.isStartElement() && reader.name() == QLatin1String("TestStep")))
        reader.readNext();
    std::vector<Token> tokens;
    for (; !reader.atEnd(); reader.readNext()) {
        if (reader.isStartElement()) {
            Token token{Token::Start, reader.name().toString(), {}};
            const QXmlStreamAttributes attributes = reader.attributes();
            for (const QXmlStreamAttribute& attribute : attributes)
                token.attributes.emplace_back(attribute.name().toString(), attribute.value().toString());
            tokens.push_back(token);
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            tokens.push_back({Token::Text, reader.text().toString(), {}});
        } else if (reader.isEndElement()) {
            tokens.push_back({Token::End, QString(), {}});
            if (reader.name() == QLatin1String("TestStep"))
                break;
        }
    }
    return tokens;
}

void Write(const std::vector<Token>& tokens, int times, const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        qFatal("no file");
    QXmlStreamWriter writer(&file);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("TestReport"));
    for (int turn = 0; turn < times; ++turn) {
        for (const Token& token : tokens) {
            if (token.kind == Token::Start) {
                writer.writeStartElement(token.text);
                for (const auto& [name, value] : token.attributes)
                    writer.writeAttribute(name, value);
            } else if (token.kind == Token::Text) {
                writer.writeCharacters(token.text);
            } else {
                writer.writeEndElement();
            }
        }
    }
    writer.writeEndDocument();
}

void XmlReport(benchmark::State& state)
{
    constexpr int perStep = 10;
    constexpr double bar = 1.5;
    const int measurements = int(state.range(0));
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("report.zyr"));
    Export(Bench::MakeLoad(perStep).get(), fileName);
    const std::vector<Token> tokens = StepTokens(fileName);
    const auto load = Bench::MakeLoad(measurements);
    Bench::Compare(
        state, measurements, [&] { Export(load.get(), fileName); },
        [&] { Write(tokens, measurements / perStep, folder.filePath(QStringLiteral("floor.zyr"))); }, bar);
}

void XmlImport(benchmark::State& state)
{
    constexpr double bar = 2.0;
    const int measurements = int(state.range(0));
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("report.zyr"));
    Export(Bench::MakeLoad(measurements).get(), fileName);
    Bench::Compare(
        state, measurements,
        [&] {
            UUTTest test(0, QString());
            CImportServiceReport service;
            service.SetInputFileName(fileName);
            if (!service.Import(&test) || test.GetResultSets().isEmpty())
                qFatal("nothing read");
        },
        [&] {
            QFile file(fileName);
            if (!file.open(QIODevice::ReadOnly))
                qFatal("no report to read");
            QXmlStreamReader reader(file.readAll());
            while (!reader.atEnd())
                reader.readNext();
        },
        bar);
}

} // namespace

#define ZYN_SIZES(name)                                                                                      \
    BENCHMARK(name)->Arg(10'000)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);              \
    BENCHMARK(name)->Arg(1'000'000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond)

ZYN_SIZES(XmlReport);
ZYN_SIZES(XmlImport);

BENCHMARK_MAIN();
